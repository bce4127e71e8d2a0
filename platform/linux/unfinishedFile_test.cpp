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
    ASSERT_EQ(7, ::write(file.descriptor(), "content", 7));
  }

  TemporaryTree tree_;
  Descriptor directory_{::open(tree_.root().c_str(), O_PATH | O_DIRECTORY)};
};

TEST_P(UnfinishedFileTest, HasItsNameOnlyWhenItIsPublished) {
  UnfinishedFile file = make();
  write(file);
  EXPECT_FALSE(tree_.exists("name"));
  EXPECT_EQ(0, file.publish("name"));
  EXPECT_THAT(tree_.names(), ElementsAre("name"));
  EXPECT_EQ("content", tree_.content("name"));
}

TEST_P(UnfinishedFileTest, StaysWhenItIsPublished) {
  {
    UnfinishedFile file = make();
    ASSERT_EQ(0, file.publish("name"));
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
    EXPECT_EQ(-EEXIST, file.publish("taken"));
    EXPECT_EQ(-EEXIST, file.publish("dangling"));
  }
  EXPECT_THAT(tree_.names(), ElementsAre("dangling", "taken"));
  EXPECT_EQ("old", tree_.content("taken"));
}

TEST_P(UnfinishedFileTest, IsForItsOwnerAlone) {
  const UnfinishedFile file = make();
  struct stat facts {};
  ASSERT_EQ(0, ::fstat(file.descriptor(), &facts));
  EXPECT_EQ(0600u, facts.st_mode & 07777u);
}

TEST_P(UnfinishedFileTest, SeveralKeepOutOfEachOthersWay) {
  UnfinishedFile first = make();
  UnfinishedFile second = make();
  EXPECT_EQ(0, first.publish("first"));
  EXPECT_EQ(0, second.publish("second"));
  EXPECT_THAT(tree_.names(), SizeIs(2));
}

TEST_P(UnfinishedFileTest, TellsWhyItCannotBeMade) {
  std::filesystem::remove(tree_.root());
  EXPECT_EQ(-ENOENT, make().descriptor());
}

INSTANTIATE_TEST_SUITE_P(BothKinds, UnfinishedFileTest,
                         testing::Values(&UnfinishedFile::in, &UnfinishedFile::namedIn),
                         [](const auto& kind) { return kind.index == 0 ? "BestKind" : "Named"; });

}  // namespace
}  // namespace quernstoke
