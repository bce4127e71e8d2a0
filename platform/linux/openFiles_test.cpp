#include "platform/linux/openFiles.h"

#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/limitedFileSize.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

class OpenedFiles : public testing::Test {
 protected:
  FileNumber open(std::string_view relative, OpenMode mode) {
    return files_.open(tree_.programPath(relative), mode);
  }
  std::string read(FileNumber file, std::size_t length) {
    std::string content(length, '?');
    content.resize(files_.read(file, content));
    return content;
  }

  TemporaryTree tree_;
  LinuxFileSystem files_{DriveTable()};
};

TEST_F(OpenedFiles, GetTheSmallestFreeNumber) {
  tree_.file("a");
  EXPECT_EQ(open("a", OpenMode::input), 1);
  EXPECT_EQ(open("a", OpenMode::sharedBinary), 2);
  EXPECT_EQ(open("a", OpenMode::binary), 3);
  files_.close(1);
  files_.close(2);
  EXPECT_EQ(open("a", OpenMode::input), 1);
  EXPECT_EQ(open("a", OpenMode::input), 2);
  EXPECT_EQ(open("a", OpenMode::input), 4);
}

TEST_F(OpenedFiles, ANumberThatIsNotInUseFails) {
  tree_.file("a");
  files_.close(open("a", OpenMode::input));
  for (const FileNumber number : {FileNumber{0}, FileNumber{1}, FileNumber{2}, FileNumber{-1}}) {
    EXPECT_FAILURE(invalidProcedureCall, read(number, 1));
    EXPECT_FAILURE(invalidProcedureCall, files_.write(number, "x"));
    EXPECT_FAILURE(invalidProcedureCall, files_.seek(number, 0));
    EXPECT_FAILURE(invalidProcedureCall, files_.openLength(number));
    EXPECT_FAILURE(invalidProcedureCall, files_.atEnd(number));
    EXPECT_FAILURE(invalidProcedureCall, files_.close(number));
  }
}

TEST_F(OpenedFiles, AreClosedWithTheFileSystem) {
  tree_.file("a");
  const auto openDescriptors = [] {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
      ++count;
    return count;
  };
  if (!std::filesystem::exists("/proc/self/fd")) GTEST_SKIP() << "no proc";
  const std::size_t before = openDescriptors();
  {
    LinuxFileSystem files{DriveTable()};
    files.open(tree_.programPath("a"), OpenMode::input);
    EXPECT_EQ(openDescriptors(), before + 1);
  }
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(OpenedFiles, ReadFromTheirOwnPosition) {
  tree_.file("a", "abcdef");
  const FileNumber first = open("a", OpenMode::sharedBinary);
  const FileNumber second = open("a", OpenMode::sharedBinary);
  EXPECT_EQ(read(first, 3), "abc");
  EXPECT_EQ(read(second, 2), "ab");
  EXPECT_EQ(read(first, 3), "def");
  files_.seek(second, 4);
  EXPECT_EQ(read(second, 9), "ef");
}

TEST_F(OpenedFiles, ReadingPastTheEndGivesNothingAndIsNoFailure) {
  tree_.file("a", "abc");
  const FileNumber file = open("a", OpenMode::sharedBinary);
  for (const std::int64_t position :
       {std::int64_t{3}, std::int64_t{1} << 40, std::numeric_limits<std::int64_t>::max()}) {
    files_.seek(file, position);
    EXPECT_EQ(read(file, 10), "");
    EXPECT_TRUE(files_.atEnd(file));
  }
}

TEST_F(OpenedFiles, AFileThatGrowsIsReadOn) {
  tree_.file("a", "abc");
  const FileNumber file = open("a", OpenMode::input);
  EXPECT_EQ(read(file, 10), "abc");
  EXPECT_TRUE(files_.atEnd(file));
  std::ofstream(tree_.path("a"), std::ios::app) << "def";
  EXPECT_FALSE(files_.atEnd(file));
  EXPECT_EQ(read(file, 10), "def");
  EXPECT_EQ(files_.openLength(file), 6);
}

TEST_F(OpenedFiles, AFileThatShrinksEndsEarlier) {
  tree_.file("a", "abcdef");
  const FileNumber file = open("a", OpenMode::sharedBinary);
  EXPECT_EQ(read(file, 3), "abc");
  std::filesystem::resize_file(tree_.path("a"), 2);
  EXPECT_EQ(read(file, 3), "");
}

// Bytes are read ahead, but never in place of what was written or sought meanwhile.
TEST_F(OpenedFiles, SingleBytesFollowSeeksAndWrites) {
  tree_.file("a", "abcdef");
  const FileNumber file = open("a", OpenMode::binary);
  EXPECT_EQ(read(file, 1), "a");
  EXPECT_EQ(read(file, 1), "b");
  files_.write(file, "XY");
  files_.seek(file, 1);
  for (const char* byte : {"b", "X", "Y", "e", "f", ""})
    EXPECT_EQ(read(file, 1), byte);
  EXPECT_TRUE(files_.atEnd(file));
  files_.seek(file, 5000);
  EXPECT_EQ(read(file, 1), "");
  files_.seek(file, 0);
  EXPECT_EQ(read(file, 1), "a");
}

TEST_F(OpenedFiles, OutputCutsAndBinaryDoesNot) {
  tree_.file("cut", "123456");
  tree_.file("kept", "123456");
  files_.write(open("cut", OpenMode::output), "ab");
  files_.write(open("kept", OpenMode::binary), "ab");
  EXPECT_EQ(tree_.content("cut"), "ab");
  EXPECT_EQ(tree_.content("kept"), "ab3456");
}

TEST_F(OpenedFiles, WritingMovesThePositionOn) {
  const FileNumber file = open("new", OpenMode::binary);
  files_.write(file, "abc");
  files_.write(file, "def");
  EXPECT_EQ(read(file, 1), "");
  files_.seek(file, 2);
  files_.write(file, "X");
  EXPECT_EQ(read(file, 9), "def");
  EXPECT_EQ(tree_.content("new"), "abXdef");
}

TEST_F(OpenedFiles, WritingWithoutRoomIsADiskFull) {
  const FileNumber file = open("a", OpenMode::output);
  const LimitedFileSize limit(4);
  EXPECT_FAILURE(diskFull, files_.write(file, "12345678"));
}

TEST_F(OpenedFiles, OnlyOutputAndBinaryMakeAMissingFile) {
  for (const OpenMode mode : {OpenMode::input, OpenMode::sharedBinary, OpenMode::update})
    EXPECT_FAILURE(fileNotFound, open("Missing", mode));
  open("Output", OpenMode::output);
  open("Binary", OpenMode::binary);
  EXPECT_FALSE(tree_.exists("Missing"));
  EXPECT_TRUE(tree_.exists("Output"));
  EXPECT_TRUE(tree_.exists("Binary"));
  EXPECT_FAILURE(pathNotFound, open("none/file", OpenMode::output));
}

TEST_F(OpenedFiles, AFileInAnotherCaseIsUsedAndNotMadeAnew) {
  tree_.file("Name", "old");
  files_.write(open("NAME", OpenMode::binary), "n");
  EXPECT_EQ(tree_.content("Name"), "nld");
  files_.write(open("name", OpenMode::output), "o");
  EXPECT_EQ(tree_.content("Name"), "o");
  EXPECT_FALSE(tree_.exists("NAME"));
  EXPECT_FALSE(tree_.exists("name"));
}

TEST_F(OpenedFiles, AreNeverReadThroughALinkOfTheScan) {
  tree_.file("target", "x");
  tree_.link("link", "target");
  EXPECT_FAILURE(pathFileAccess, open("link", OpenMode::sharedBinary));
  EXPECT_FAILURE(pathFileAccess, open("link", OpenMode::update));
  EXPECT_EQ(read(open("link", OpenMode::input), 1), "x");
}

TEST_F(OpenedFiles, ALinkThatLeadsNowhereIsNotWrittenThrough) {
  tree_.link("dangling", "made");
  for (const OpenMode mode : {OpenMode::output, OpenMode::binary})
    EXPECT_NE(failureOf([&] { open("dangling", mode); }), std::nullopt);
  EXPECT_FALSE(tree_.exists("made"));
}

// A FIFO without a writer would hold up a read or an open for ever.
TEST_F(OpenedFiles, AFifoNeverHangs) {
  tree_.fifo("fifo");
  const FileNumber file = open("fifo", OpenMode::sharedBinary);
  EXPECT_NE(failureOf([&] { read(file, 1); }), std::nullopt);
  EXPECT_EQ(files_.passedOver().unreadable, 1);
  for (const OpenMode mode :
       {OpenMode::input, OpenMode::output, OpenMode::binary, OpenMode::update})
    EXPECT_FAILURE(pathFileAccess, open("fifo", mode));
}

TEST_F(OpenedFiles, ARefusedFileFailsAndIsCountedOnce) {
  tree_.file("closed");
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may read everything";
  tree_.setMode("closed", 0);
  EXPECT_FAILURE(permissionDenied, open("closed", OpenMode::sharedBinary));
  EXPECT_FAILURE(permissionDenied, open("closed", OpenMode::sharedBinary));
  EXPECT_EQ(files_.passedOver().unreadable, 1);
}

TEST_F(OpenedFiles, TooManyOpenFilesIsAnAccessError) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer needs a free descriptor to look at an exception";
#endif
  tree_.file("a");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit small{32, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &small), 0);
  const auto failure = failureOf([&] {
    for (int i = 0; i < 64; ++i)
      open("a", OpenMode::input);
  });
  ::setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(failure, FailureNumber::pathFileAccess);
}

}  // namespace
}  // namespace quernstoke
