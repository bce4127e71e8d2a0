#include "results/localCopies.h"

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LocalCopiesTest : public EngineTest {
 protected:
  LocalCopiesTest() { buildCatalogue({{"a", "C:\\"}, {"b", "C:\\"}, {"c", "C:\\"}}); }
  // A row names a copy of this name.
  void copy(int file, const std::string& name) {
    disk.file(path(name), "copy");
    FileTable.FileLocalName.set(file, path(name));
  }
  static std::string path(const std::string& name) { return TempDir + "\\" + name; }
};

TEST_F(LocalCopiesTest, CopyAndItsNameGo) {
  copy(2, "song");
  deleteLocalCopy(2);
  EXPECT_FALSE(disk.exists(path("song")));
  EXPECT_EQ(FileTable.FileLocalName[2], "");
}

TEST_F(LocalCopiesTest, CopyThatCannotBeDeletedIsRemembered) {
  copy(2, "song");
  disk.failOn(DiskAction::remove, path("song"), FailureNumber::permissionDenied);
  deleteLocalCopy(2);
  EXPECT_EQ(FileTable.FileLocalName[2], path("song"));
}

TEST_F(LocalCopiesTest, CopiesAtAPathGoWhateverTheirLetterCase) {
  copy(1, "SONG");
  copy(3, "other");
  deleteLocalCopiesAt(path("song"));
  EXPECT_FALSE(disk.exists(path("SONG")));
  EXPECT_THAT(localCopies(), ElementsAre(path("other")));
}

// A name stays with its row and so may come to stand for another file, but the copy is in use.
TEST_F(LocalCopiesTest, OnlyCopiesThatNoRowNamesAreLost) {
  copy(1, "first");
  copy(3, "last");
  const std::vector<std::string> before = localCopies();
  basRedimFilesArrays(2, true);
  FileCount = 2;
  deleteLostCopies(before);
  EXPECT_TRUE(disk.exists(path("first")));
  EXPECT_FALSE(disk.exists(path("last")));
}

TEST_F(LocalCopiesTest, CopyThatTwoRowsNameStaysForTheOneThatIsLeft) {
  copy(3, "song");
  FileTable.FileLocalName.set(1, path("SONG"));
  const std::vector<std::string> before = localCopies();
  FileCount = 2;
  deleteLostCopies(before);
  EXPECT_TRUE(disk.exists(path("song")));
}

TEST_F(LocalCopiesTest, NothingNamedIsNothingLost) {
  EXPECT_THAT(localCopies(), IsEmpty());
  disk.file(path("song"), "a person's");
  deleteLostCopies(localCopies());
  EXPECT_TRUE(disk.exists(path("song")));
}

}  // namespace
}  // namespace quernstoke
