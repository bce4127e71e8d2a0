#include "results/directoryMatch.h"

#include <functional>
#include <optional>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "core/scanState.h"
#include "progress/scanStatus.h"
#include "results/filters.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class DirectoryMatchTest : public ResultsGridTest {
 protected:
  DirectoryMatchTest() {
    ProfileSettings.MaximumSize = 1000;
    ProfileSettings.MinimumSizeMeasure = ProfileSettings.MaximumSizeMeasure = "B";
    allocateProfileDirList();
    RunState = runState::finished;
    modalForms.frmDirParent = [this] {
      asked.push_back(DialogText);
      startValues = {DialogValue.raw(), DialogValue2.raw()};
      if (answer) DialogText = *answer;
    };
    modalForms.frmDirMatch = [this] {
      ++matches;
      matched = {DirMatchDir1.raw(), DirMatchDir2.raw()};
      stateAtMatch = RunState.raw();
      filesAtMatch = fileNames();
      tagAtMatch = form.tag;
      inputAtMatch = form.takesInput;
      if (onMatch) onMatch();
    };
  }

  // Three files of one match in each of two directories, and others beside them on the disk.
  void show() {
    for (const char* path : {"C:\\one\\a", "C:\\one\\b", "C:\\one\\single", "C:\\two\\c",
                             "C:\\two\\d", "C:\\two\\other.txt"})
      disk.file(path, "xx");
    buildCatalogue({{"a", "C:\\one", 2, 0},
                    {"b", "C:\\one", 2, 0},
                    {"c", "C:\\two", 2, 0},
                    {"d", "C:\\two", 2, 0}});
    DirTable.redim(DirCount, true);
    basRedimFilesArrays(FileCount, true);
    basBuildWholeGrid(form, 0, 1);
  }
  void click(int index) { cmdSetDir_Click(form, static_cast<std::int16_t>(index)); }
  void set(int index, int row) {
    select(row, row);
    click(index);
  }
  void setBoth() {
    set(0, 1);
    set(1, 3);
  }
  const ScriptedDirectoryButton& button(int index) const {
    return form.directoryButtons[static_cast<std::size_t>(index)];
  }

  std::optional<std::string> answer;  // Without one, what was asked is taken as it is.
  std::vector<std::string> asked;
  std::pair<int, int> startValues;
  std::function<void()> onMatch;
  int matches = 0;
  std::pair<int, int> matched;
  int stateAtMatch = -1;
  std::vector<std::string> filesAtMatch;
  std::string tagAtMatch;
  bool inputAtMatch = false;
};

// Picking.

TEST_F(DirectoryMatchTest, DirectoryIsAskedForWithoutBoxes) {
  show();
  set(0, 3);
  EXPECT_THAT(asked, ElementsAre("C:\\two"));
  EXPECT_EQ(startValues, std::pair(-1, -1));
}

TEST_F(DirectoryMatchTest, PickedDirectoryIsShownByItsButton) {
  show();
  setBoth();
  EXPECT_EQ(button(0).text, "1");
  EXPECT_EQ(button(0).toolTip, "Directory C:\\one");
  EXPECT_TRUE(button(0).bold);
  EXPECT_EQ(button(1).text, "2");
  EXPECT_EQ(button(1).toolTip, "Directory C:\\two");
  EXPECT_TRUE(button(1).bold);
  EXPECT_TRUE(form.takesInput);
}

TEST_F(DirectoryMatchTest, SecondPickReplacesTheFirst) {
  show();
  set(0, 1);
  set(0, 3);
  EXPECT_EQ(button(0).text, "2");
  EXPECT_EQ(button(0).toolTip, "Directory C:\\two");
}

TEST_F(DirectoryMatchTest, CancelledPickLeavesTheOneBefore) {
  show();
  set(0, 1);
  answer = "";
  set(0, 3);
  EXPECT_EQ(button(0).text, "1");
  EXPECT_TRUE(button(0).bold);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryMatchTest, DirectoryOutsideTheScanIsRefused) {
  show();
  for (const char* outside : {"C:", "C:\\ONE"}) {
    answer = outside;
    set(0, 1);
    EXPECT_THAT(dialogBoxes.messages,
                ElementsAre("The directory you have choosen was not part of the original duplicate "
                            "scan selection. Please try again."));
    EXPECT_EQ(button(0).text, "");
    EXPECT_EQ(button(0).toolTip, "Set Directory 1");
    EXPECT_FALSE(button(0).bold);
    dialogBoxes.messages.clear();
  }
}

TEST_F(DirectoryMatchTest, FileInAnArchiveSetsTheDirectoryThatHoldsIt) {
  show();
  bool existed = false;
  const Int32 archive = basAddDirToList("C:\\one\\a.zip", dirKind::zipFile, 1, existed);
  FileTable.FileDirNum[3] = basAddDirToList("docs", dirKind::zipFolder, archive, existed);
  set(0, 3);
  EXPECT_THAT(asked, ElementsAre("C:\\one"));
  EXPECT_EQ(button(0).text, "1");
}

TEST_F(DirectoryMatchTest, HeaderPicksNothing) {
  show();
  set(0, 0);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryMatchTest, EmptyRowIsReported) {
  show();
  set(0, 8);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cmdSetDir_Click", "Subscript out of range(9)")));
}

// Comparing.

TEST_F(DirectoryMatchTest, BothDirectoriesMustBeSet) {
  show();
  for (const int set : {-1, 0, 1}) {
    form.directoryButtons[0].text = set == 0 ? "1" : "";
    form.directoryButtons[1].text = set == 1 ? "1" : "";
    click(2);
    EXPECT_THAT(dialogBoxes.messages,
                ElementsAre("You must set both directories before you can open the Directory match "
                            "window"));
    dialogBoxes.messages.clear();
  }
  EXPECT_EQ(matches, 0);
  EXPECT_EQ(RunState, runState::finished);
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(DirectoryMatchTest, WindowGetsBothDirectoriesWithAllTheirFiles) {
  show();
  setBoth();
  click(2);
  EXPECT_EQ(matches, 1);
  EXPECT_EQ(matched, std::pair(1, 2));
  EXPECT_EQ(stateAtMatch, runState::finished);
  EXPECT_EQ(tagAtMatch, "IGNORE");
  EXPECT_THAT(filesAtMatch, ElementsAre("a", "b", "c", "d", "single", "other.txt"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryMatchTest, ScanWindowTellsWhatIsDone) {
  show();
  setBoth();
  click(2);
  EXPECT_THAT(windows, ElementsAre("frmScanStatus show", "frmScanStatus unload"));
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Preparing to scan directories...", "Scanning directory  C:\\one",
                          "Scanning directory  C:\\two", "Compiling files list..."));
  EXPECT_EQ(statusWindow.refreshes, 4);
}

TEST_F(DirectoryMatchTest, AllIsAsBeforeWhenTheWindowIsClosed) {
  show();
  setBoth();
  click(2);
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d"));
  EXPECT_EQ(DirCount, 2);
  EXPECT_EQ(form.tag, "");
  EXPECT_EQ(RunState, runState::finished);
  EXPECT_TRUE(form.takesInput);
  for (const int index : {0, 1}) {
    EXPECT_EQ(button(index).text, "");
    EXPECT_FALSE(button(index).bold);
    EXPECT_EQ(button(index).toolTip, "Set Directory " + std::to_string(index + 1));
  }
}

TEST_F(DirectoryMatchTest, OneDirectoryCanBeComparedWithItself) {
  show();
  set(0, 1);
  set(1, 2);
  click(2);
  EXPECT_EQ(matched, std::pair(1, 1));
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Preparing to scan directories...", "Scanning directory  C:\\one",
                          "Scanning directory  C:\\one", "Compiling files list..."));
  EXPECT_THAT(filesAtMatch, ElementsAre("a", "b", "c", "d", "single"));
}

TEST_F(DirectoryMatchTest, FilesDeletedInTheWindowStayInTheList) {
  show();
  setBoth();
  onMatch = [] { FileTable.FileStatus[statusState][1] = fileState::deleted; };
  click(2);
  EXPECT_EQ(FileCount, 4);
  EXPECT_TRUE(grid.cell(1, 1).strikeThrough);
}

// The walk knows nothing of filters.
TEST_F(DirectoryMatchTest, FileThatWasFilteredOutComesBackForTheComparison) {
  show();
  FileTable.FileStatus[statusState][2] = fileState::removed;
  basFilterRefresh(form);
  ASSERT_THAT(fileNames(), UnorderedElementsAre("a", "c", "d"));
  answer = "C:\\one";
  set(0, 1);
  answer = "C:\\two";
  set(1, 1);
  onMatch = [&] {
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileName[file] == "b") {
        EXPECT_EQ(FileTable.FileStatus[statusTemporary][file], 1);
      }
  };
  click(2);
  EXPECT_THAT(filesAtMatch, Contains("b"));
  EXPECT_THAT(fileNames(), UnorderedElementsAre("a", "c", "d"));
}

TEST_F(DirectoryMatchTest, WalkTakesEveryExtensionWithinTheLimitsOfTheProfile) {
  ExtensionList[1] = "MP3";
  ExtensionList[2] = "WMA";
  ProfileSettings.MinimumSize = 2;
  ProfileSettings.MaximumSize = 3;
  show();
  disk.file("C:\\one\\small", "x");
  disk.file("C:\\one\\large.mp3", "xxxx");
  disk.file("C:\\one\\.hidden", "xx");
  disk.setAttributes("C:\\one\\.hidden", attributeHidden);
  setBoth();
  click(2);
  EXPECT_THAT(filesAtMatch, ElementsAre("a", "b", "c", "d", "single", "other.txt"));
  EXPECT_EQ(ExtensionList[1], "*");
  EXPECT_EQ(ExtensionList[2], "");
  EXPECT_EQ(ScanAttributes, 49);
  ProfileSettings.ScanHiddenFiles = ProfileSettings.ScanSystemFiles = true;
  setBoth();
  click(2);
  EXPECT_EQ(ScanAttributes, 55);
  EXPECT_THAT(filesAtMatch, Contains(".hidden"));
}

TEST_F(DirectoryMatchTest, ListGoesNearItsTop) {
  std::vector<CatalogueFile> files;
  for (int file = 1; file <= 100; ++file)
    files.push_back({"f" + std::to_string(file), "C:\\one", 1, 0});
  disk.directory("C:\\one");
  buildCatalogue(files);
  basRedimFilesArrays(FileCount, true);
  build();
  fill("POS", 60);
  set(0, 5);
  set(1, 5);
  click(2);
  EXPECT_EQ(firstOnPage(), 5);
}

TEST_F(DirectoryMatchTest, ResultsTakeNoInputWhileTheDirectoriesAreRead) {
  show();
  setBoth();
  ScanDetailsShown = true;
  int yields = 0;
  eventLoop.onYield = [&] {
    ++yields;
    EXPECT_FALSE(form.takesInput);
    EXPECT_EQ(RunState, runState::idle);
  };
  // The first update comes with the 500th file.
  for (int file = 0; file < 500; ++file)
    disk.file("C:\\one\\n" + std::to_string(file), "xx");
  click(2);
  EXPECT_GT(yields, 0);
  EXPECT_TRUE(inputAtMatch);
}

// The file in hand when the person stops the walk comes in as one of a scan.
TEST_F(DirectoryMatchTest, NothingOfAStoppedWalkStays) {
  show();
  setBoth();
  ScanDetailsShown = true;
  // The first update comes with the 500th file.
  for (int file = 0; file < 500; ++file)
    disk.file("C:\\one\\n" + std::to_string(file), "xx");
  eventLoop.onYield = [] { RunState = runState::abortRequested; };
  click(2);
  EXPECT_EQ(filesAtMatch.size(), 501u);
  EXPECT_EQ(stateAtMatch, runState::finished);
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d"));
}

// The row behind the last one kept still holds the directory that went, and that costs another.
TEST_F(DirectoryMatchTest, DirectoryMadeSinceTheScanCostsTheLastOfTheTable) {
  show();
  disk.file("C:\\one\\made\\new", "xx");
  setBoth();
  click(2);
  EXPECT_THAT(filesAtMatch, Contains("new"));
  EXPECT_EQ(FileCount, 4);
  EXPECT_EQ(DirCount, 1);
}

TEST_F(DirectoryMatchTest, DirectoryThatIsGoneIsTold) {
  show();
  setBoth();
  DirTable.redim(1, true);
  click(2);
  EXPECT_THAT(dialogBoxes.messages,
              Contains(procedureError("cmdSetDir_Click", "Subscript out of range(9)")));
  EXPECT_EQ(matches, 0);
  EXPECT_TRUE(form.takesInput);
  EXPECT_EQ(button(0).text, "1");
  EXPECT_EQ(button(1).text, "2");
  // Those of the directory that was still read. They go with those of the next comparison.
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d", "single"));
  set(1, 1);
  click(2);
  EXPECT_EQ(matches, 1);
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d"));
}

TEST_F(DirectoryMatchTest, SlotsOfTheDialogsAreTheDirectories) {
  DialogValue = 4;
  DialogValue2 = 9;
  EXPECT_EQ(DirMatchDir1, 4);
  EXPECT_EQ(DirMatchDir2, 9);
}

}  // namespace
}  // namespace quernstoke
