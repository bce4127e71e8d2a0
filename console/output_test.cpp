#include "console/output.h"

#include <gtest/gtest.h>

#include "console/exitStatus.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

class OutputTest : public testing::Test {
 protected:
  template <class Steps>
  static std::string failureOf(Steps steps) {
    try {
      steps();
    } catch (const ScanError& error) {
      EXPECT_EQ(error.status, ExitStatus::failed);
      return error.what();
    }
    return {};
  }

  TemporaryTree tree;
};

TEST_F(OutputTest, FileHoldsWhatWasWrittenAndNothingOlder) {
  tree.file("out", "something older and longer");
  Output output(tree.path("out"));
  output.write("a\n");
  output.write("b\n");
  output.finish();
  EXPECT_EQ(tree.content("out"), "a\nb\n");
}

TEST_F(OutputTest, LongTextArrivesWhole) {
  Output output(tree.path("out"));
  const std::string piece(10'000, 'x');
  for (int i = 0; i < 30; ++i)
    output.write(piece);
  output.finish();
  EXPECT_EQ(tree.content("out"), std::string(300'000, 'x'));
}

TEST_F(OutputTest, FullDiskIsTold) {
  EXPECT_EQ(failureOf([] {
              Output output("/dev/full");
              output.write("a");
              output.finish();
            }),
            "/dev/full: No space left on device");
}

TEST_F(OutputTest, FileThatCannotBeOpenedIsTold) {
  EXPECT_EQ(failureOf([&] { Output output(tree.path("nix/out")); }),
            tree.path("nix/out") + ": No such file or directory");
}

TEST_F(OutputTest, LookingAheadTouchesNothing) {
  tree.file("old", "old");
  requireWritable(tree.path("old"));
  requireWritable(tree.path("new"));
  EXPECT_EQ(tree.content("old"), "old");
  EXPECT_FALSE(tree.exists("new"));
}

TEST_F(OutputTest, LookingAheadFindsWhatWillFail) {
  tree.directory("directory");
  EXPECT_EQ(failureOf([&] { requireWritable(tree.path("directory")); }),
            tree.path("directory") + ": Is a directory");
  EXPECT_EQ(failureOf([&] { requireWritable(tree.path("nix/out")); }),
            tree.path("nix/out") + ": No such file or directory");
}

}  // namespace
}  // namespace quernstoke
