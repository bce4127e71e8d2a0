#include "platform/linux/unfinishedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Maker = UnfinishedFile (*)(int directory);

class UnfinishedFileTest : public testing::TestWithParam<Maker> {
 protected:
  UnfinishedFile make() const { return GetParam()(directory_.get()); }
  void write(const UnfinishedFile& file) const {
    ASSERT_EQ(::write(file.descriptor(), "content", 7), 7);
  }

  TemporaryTree tree_;
  Descriptor directory_{::open(tree_.root().c_str(), O_PATH | O_DIRECTORY)};
};

TEST_P(UnfinishedFileTest, HasItsNameOnlyWhenItIsPublished) {
  UnfinishedFile file = make();
  write(file);
  EXPECT_FALSE(tree_.exists("name"));
  EXPECT_EQ(file.publish("name"), 0);
  EXPECT_THAT(tree_.names(), ElementsAre("name"));
  EXPECT_EQ(tree_.content("name"), "content");
}

TEST_P(UnfinishedFileTest, StaysWhenItIsPublished) {
  {
    UnfinishedFile file = make();
    ASSERT_EQ(file.publish("name"), 0);
  }
  EXPECT_THAT(tree_.names(), ElementsAre("name"));
}

TEST_P(UnfinishedFileTest, LeavesNothingUnlessItIsPublished) {
  { write(make()); }
  EXPECT_THAT(tree_.names(), IsEmpty());
}

TEST_P(UnfinishedFileTest, NeverReplaces) {
  tree_.file("taken", "old");
  tree_.link("dangling", "nowhere");
  {
    UnfinishedFile file = make();
    write(file);
    EXPECT_EQ(file.publish("taken"), -EEXIST);
    EXPECT_EQ(file.publish("dangling"), -EEXIST);
  }
  EXPECT_THAT(tree_.names(), ElementsAre("dangling", "taken"));
  EXPECT_EQ(tree_.content("taken"), "old");
}

TEST_P(UnfinishedFileTest, IsForItsOwnerAlone) {
  const UnfinishedFile file = make();
  struct stat facts {};
  ASSERT_EQ(::fstat(file.descriptor(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777u, 0600u);
}

TEST_P(UnfinishedFileTest, SeveralKeepOutOfEachOthersWay) {
  UnfinishedFile first = make();
  UnfinishedFile second = make();
  EXPECT_EQ(first.publish("first"), 0);
  EXPECT_EQ(second.publish("second"), 0);
  EXPECT_THAT(tree_.names(), SizeIs(2));
}

TEST_P(UnfinishedFileTest, TellsWhyItCannotBeMade) {
  std::filesystem::remove(tree_.root());
  EXPECT_EQ(make().descriptor(), -ENOENT);
}

INSTANTIATE_TEST_SUITE_P(BothKinds, UnfinishedFileTest,
                         testing::Values(&UnfinishedFile::in, &UnfinishedFile::namedIn),
                         [](const auto& kind) { return kind.index == 0 ? "BestKind" : "Named"; });

}  // namespace
}  // namespace quernstoke
