#include "results/filters.h"

#include "catalogue/dirTable.h"
#include "core/scanState.h"
#include "mainui/modalForms.h"
#include "results/matchGroupIndex.h"
#include "results/resultsGridTest.h"
#include "settings/profileStore.h"

namespace quernstoke {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

// What frmDirParent was given, and what it answers.
struct DialogValues {
  std::string text;
  int subDirectories = 0;
  int makePermanent = 0;
};

class FiltersTest : public ResultsGridTest {
 protected:
  FiltersTest() {
    allocateProfileDirList();
    modalForms.frmDirParent = [this] {
      asked.push_back({DialogText, DialogValue.raw(), DialogValue2.raw()});
      DialogText = answer.text;
      DialogValue = answer.subDirectories;
      DialogValue2 = answer.makePermanent;
    };
  }

  // Shows these files behind a first match of three that no test filters: it would count one short.
  void show(std::vector<CatalogueFile> files) {
    files.insert(files.begin(),
                 {{"k1", "C:\\keep", 1, 0}, {"k2", "C:\\keep", 1, 0}, {"k3", "C:\\keep", 1, 0}});
    buildCatalogue(files);
    build();
  }
  // Pairs in C:\Data, in what lies below it, and in what only begins like it.
  void showData() {
    show({{"a1", "C:\\Data", 10, 1},
          {"a2", "C:\\Data", 10, 1},
          {"b1", "C:\\Data\\Sub", 20, 2},
          {"b2", "C:\\Data\\Sub", 20, 2},
          {"c1", "C:\\Database", 30, 3},
          {"c2", "C:\\Database", 30, 3}});
  }
  int rowOf(const std::string& name) const {
    for (Int32 row = 1; row < grid.rows(); ++row)
      if (grid.rowData(row) >= 0 && FileTable.FileName[grid.rowData(row)] == name) return row.raw();
    ADD_FAILURE() << name;
    return 0;
  }
  using ResultsGridTest::select;
  void select(const std::string& name) { select(rowOf(name), rowOf(name)); }
  void filter(const std::string& name, const DialogValues& answered) {
    select(name);
    answer = answered;
    basFilterDirectory(form);
  }
  void pick(int index, const std::string& name, const DialogValues& answered) {
    select(name);
    answer = answered;
    mnuFilterTwoDirs_Click(form, static_cast<std::int16_t>(index));
  }
  void pickPair(int subDirectories, int makePermanent) {
    pick(0, "a1", {"c:\\data", subDirectories, makePermanent});
    pick(1, "c1", {"c:\\database", subDirectories, makePermanent});
  }
  std::vector<std::string> asking() const {
    const DialogValues& last = asked.back();
    return {last.text, std::to_string(last.subDirectories), std::to_string(last.makePermanent)};
  }
  static std::vector<std::string> slot(int number) {
    const DirSpec& spec = ProfileDirList[number];
    return {spec.Dir, spec.IncludeExclude, spec.IncludeExtensions,
            spec.RecurseSubDirs ? "recurse" : ""};
  }
  static void fillSlots(int last) {
    for (int number = 1; number <= last; ++number)
      ProfileDirList[number].Dir = "C:\\" + std::to_string(number);
  }
  std::vector<std::string> captions() const {
    return {form.filterTwoDirs[0].caption, form.filterTwoDirs[1].caption};
  }
  std::vector<std::string> tags() const {
    return {form.filterTwoDirs[0].text, form.filterTwoDirs[1].text};
  }

  DialogValues answer;
  std::vector<DialogValues> asked;
};

// The menu.

TEST_F(FiltersTest, ButtonNamesTheDirectoryAndPopsItsMenuUp) {
  showData();
  select("a2");
  form.screen.log.clear();
  cmdFilter_Click(form);
  EXPECT_EQ(form.filterDirectory.caption,
            "Exclude all files from the display based on directory c:\\data");
  EXPECT_THAT(form.menus, ElementsAre("mnuFilterMain beside cmdFilter + 20"));
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
}

TEST_F(FiltersTest, ButtonGoesByTheFileAtTheCursorOfASelection) {
  showData();
  select(rowOf("b1"), rowOf("c2"));
  cmdFilter_Click(form);
  EXPECT_EQ(form.filterDirectory.caption,
            "Exclude all files from the display based on directory c:\\data\\sub");
}

TEST_F(FiltersTest, SecondLineBelongsToItsFile) {
  ResultsView = resultsView::twoLines;
  showData();
  select(rowOf("a1") + 1, rowOf("a1") + 1);
  cmdFilter_Click(form);
  EXPECT_EQ(form.filterDirectory.caption,
            "Exclude all files from the display based on directory c:\\data");
}

TEST_F(FiltersTest, MenuDoesNotPopUpForAnEmptyRow) {
  showData();
  select(12, 12);
  cmdFilter_Click(form);
  EXPECT_THAT(form.menus, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cmdFilter_Click", "Subscript out of range(9)")));
}

TEST_F(FiltersTest, HiddenGridGetsNoFocus) {
  showData();
  grid.setVisible(false);
  form.screen.log.clear();
  cmdFilter_Click(form);
  EXPECT_THAT(form.screen.log, IsEmpty());
}

TEST_F(FiltersTest, DisabledGridGetsNoFocus) {
  showData();
  grid.setEnabled(false);
  form.screen.log.clear();
  cmdFilter_Click(form);
  EXPECT_THAT(form.screen.log, IsEmpty());
}

TEST_F(FiltersTest, OnlyTheFirstItemOfTheMenuFilters) {
  showData();
  select("a1");
  mnuFilter_Click(form, 1);
  EXPECT_THAT(asked, IsEmpty());
  mnuFilter_Click(form, 0);
  EXPECT_EQ(asked.size(), 1u);
}

// Excluding a directory.

TEST_F(FiltersTest, DialogStartsWithTheFilesDirectoryAndSubDirectories) {
  showData();
  filter("b1", {});
  EXPECT_THAT(asking(), ElementsAre("c:\\data\\sub", "1", "0"));
}

TEST_F(FiltersTest, WithoutSubDirectoriesOnlyTheDirectoryItselfGoes) {
  showData();
  filter("a1", {"c:\\data", 0, 0});
  EXPECT_THAT(fileNames(), UnorderedElementsAre("k1", "k2", "k3", "b1", "b2", "c1", "c2"));
  EXPECT_EQ(FileCount, 7);
}

// No separator is asked for behind the directory.
TEST_F(FiltersTest, SubDirectoriesTakeWhatBeginsLikeTheDirectory) {
  showData();
  filter("a1", {"c:\\data", 1, 0});
  EXPECT_THAT(fileNames(), UnorderedElementsAre("k1", "k2", "k3"));
}

TEST_F(FiltersTest, LetterCaseOfAChoiceDoesNotMatter) {
  showData();
  filter("a1", {"C:\\DATA\\Sub", 0, 1});
  EXPECT_THAT(fileNames(), Not(testing::Contains("b1")));
  EXPECT_EQ(ProfileDirList[1].Dir, "c:\\data\\sub");
}

TEST_F(FiltersTest, CancelledFilterChangesNothing) {
  showData();
  filter("a1", {"", 1, 1});
  EXPECT_EQ(FileCount, 9);
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(FiltersTest, SeveralFilesCannotBeFiltered) {
  showData();
  select(rowOf("a1"), rowOf("a2"));
  answer = {"c:\\data", 1, 0};
  basFilterDirectory(form);
  EXPECT_EQ(dialogBoxes.beeps, 1);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_EQ(FileCount, 9);
}

TEST_F(FiltersTest, EmptyRowCannotBeFiltered) {
  showData();
  select(12, 12);
  basFilterDirectory(form);
  EXPECT_EQ(dialogBoxes.beeps, 1);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(FiltersTest, FileOfTwoLinesIsFiltered) {
  ResultsView = resultsView::twoLines;
  showData();
  answer = {"c:\\data\\sub", 0, 0};
  select(rowOf("b1"), rowOf("b1") + 1);
  basFilterDirectory(form);
  EXPECT_EQ(FileCount, 7);
}

TEST_F(FiltersTest, GroupOfThreeThatLosesTwoLeavesTheList) {
  show({{"a1", "C:\\gone", 10, 1},
        {"a2", "C:\\gone", 10, 1},
        {"a3", "C:\\left", 10, 1},
        {"b1", "C:\\left", 20, 2},
        {"b2", "C:\\left", 20, 2}});
  EXPECT_EQ(DuplicateCount, 5);
  filter("a1", {"c:\\gone", 0, 0});
  EXPECT_THAT(fileNames(), UnorderedElementsAre("k1", "k2", "k3", "b1", "b2"));
  EXPECT_EQ(DuplicateCount, 3);
  EXPECT_EQ(MatchGroupCount, 2);
}

// They would else lie in the way of every file of their name.
TEST_F(FiltersTest, CopiesOfRowsThatGoAreDeleted) {
  showData();
  for (const int row : {1, 9}) {
    const std::string copy = TempDir + "\\of" + std::to_string(row);
    disk.file(copy, "copy");
    FileTable.FileLocalName.set(row, copy);
  }
  filter("a1", {"c:\\data", 0, 0});
  EXPECT_FALSE(disk.exists(TempDir + "\\of9"));
  EXPECT_TRUE(disk.exists(TempDir + "\\of1"));
  filter("k1", {"c:\\", 1, 0});
  EXPECT_EQ(FileCount, 0);
  EXPECT_FALSE(disk.exists(TempDir + "\\of1"));
}

TEST_F(FiltersTest, DeletedFilesStillCountAsMembers) {
  show({{"a1", "C:\\gone", 10, 1}, {"a2", "C:\\left", 10, 1}, {"a3", "C:\\left", 10, 1}});
  FileTable.FileStatus[statusState][6] = fileState::deleted;
  filter("a1", {"c:\\gone", 0, 0});
  EXPECT_THAT(fileNames(), UnorderedElementsAre("k1", "k2", "k3", "a2", "a3"));
}

TEST_F(FiltersTest, ZipEntryTakesTheDirectoryOfItsArchive) {
  show({{"in", "C:\\data", 10, 1}, {"beside", "C:\\data", 10, 1}, {"below", "C:\\data\\x", 10, 1}});
  const Int32 data = basFindDirInList("C:\\data");
  bool existed = false;
  const Int32 archive = basAddDirToList("C:\\data\\a.zip", dirKind::zipFile, data, existed);
  const Int32 folder = basAddDirToList("docs", dirKind::zipFolder, archive, existed);
  FileTable.FileDirNum[4] = folder;
  filter("in", {"c:\\data", 0, 0});
  EXPECT_EQ(asked.back().text, "c:\\data");
  EXPECT_THAT(fileNames(), UnorderedElementsAre("k1", "k2", "k3"));
}

TEST_F(FiltersTest, PermanentExclusionIsInTheProfileButNotSaved) {
  makeProfile("Music");
  fillSlots(2);
  ProfileDirList[3].IncludeExtensions = "7";
  showData();
  const auto savings = disk.count(DiskAction::open, ProfilesDir + "\\Music.profile");
  filter("a1", {"c:\\data", 1, 1});
  EXPECT_THAT(slot(3), ElementsAre("c:\\data", "E", "7", "recurse"));
  EXPECT_EQ(disk.count(DiskAction::open, ProfilesDir + "\\Music.profile"), savings);
  EXPECT_TRUE(form.newExclusion);
  basSaveProfile("PROFILE");
  ProfileDirList[3] = {};
  basLoadProfile("PROFILE");
  EXPECT_EQ(ProfileDirList[3].Dir, "c:\\data");
}

// A list may come without some of its directories. Nothing tells where their files lie.
TEST_F(FiltersTest, FilesOfDirectoriesThatAreNotListedStay) {
  enum Lost { directory, archive, directoryOfArchive };
  for (const Lost lost : {directory, archive, directoryOfArchive}) {
    show({{"a1", "C:\\gone", 10, 1},
          {"a2", "C:\\gone", 10, 1},
          {"x", "C:\\left", 10, 2},
          {"y", "C:\\left", 10, 2},
          {"z", "C:\\left", 10, 2}});
    const Int32 left = basFindDirInList("C:\\left");
    constexpr int nowhere = 99;
    bool existed = false;
    const Int32 zip = basAddDirToList("C:\\left\\a.zip", dirKind::zipFile, nowhere, existed);
    if (lost == directory)
      for (Int32 file = 1; file <= FileCount; ++file)
        if (FileTable.FileDirNum[file] == left) FileTable.FileDirNum[file] = nowhere;
    if (lost != directory)
      DirTable.set(left, {"docs", dirKind::zipFolder, lost == archive ? Int32(nowhere) : zip});
    filter("a1", {"c:\\", 1, 0});
    EXPECT_THAT(fileNames(), UnorderedElementsAre("x", "y", "z")) << lost;
    EXPECT_THAT(dialogBoxes.messages, Not(testing::Contains(testing::HasSubstr("basFilter"))));
  }
}

TEST_F(FiltersTest, ExclusionWithoutSubDirectoriesIsStoredSo) {
  showData();
  filter("a1", {"c:\\data", 0, 1});
  EXPECT_THAT(slot(1), ElementsAre("c:\\data", "E", "", ""));
}

TEST_F(FiltersTest, PassingFilterIsNoExclusionToSave) {
  showData();
  filter("a1", {"c:\\data", 1, 0});
  EXPECT_FALSE(form.newExclusion);
}

TEST_F(FiltersTest, FullListGrowsForAnExclusion) {
  fillSlots(lastDirSlot);
  showData();
  filter("a1", {"c:\\data", 0, 1});
  EXPECT_EQ(ProfileDirList[lastDirSlot + 1].Dir, "c:\\data");
  EXPECT_EQ(ProfileDirList.upperBound(), lastDirSlot + 1 + 65);
}

// Only the tick counts here: dimmed is no.
TEST_F(FiltersTest, DimmedAnswersAreNone) {
  showData();
  filter("a1", {"c:\\data", 2, 2});
  EXPECT_THAT(slot(1), ElementsAre("", "", "", ""));
  EXPECT_EQ(FileCount, 7);
}

// Refreshing.

TEST_F(FiltersTest, AllFilesFilteredLeavesTheEmptyWindow) {
  buildCatalogue({{"a1", "C:\\data", 10, 1}, {"a2", "C:\\data", 10, 1}});
  build();
  form.statusBarUpdates = 0;
  filter("a1", {"c:\\data", 0, 0});
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(form.statusBarUpdates, 1);  // No page was filled.
  EXPECT_TRUE(form.noDuplicatesShown);
  EXPECT_FALSE(grid.visible());
  EXPECT_THAT(form.disabled, testing::Contains("cmdFilter"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// The first run of the sorted list counts one short. A pair there loses its second file, and the
// first stays alone.
TEST_F(FiltersTest, FirstPairLosesItsSecondFile) {
  buildCatalogue({{"a1", "C:\\one", 10, 1},
                  {"a2", "C:\\one", 10, 1},
                  {"b1", "C:\\two", 20, 2},
                  {"b2", "C:\\two", 20, 2},
                  {"c1", "C:\\gone", 30, 3},
                  {"c2", "C:\\gone", 30, 3}});
  build();
  filter("c1", {"c:\\gone", 0, 0});
  EXPECT_EQ(FileCount, 3);
  EXPECT_THAT(matchNumbers(), ElementsAre(1, 2, 2));
  EXPECT_EQ(DuplicateCount, 1);
}

TEST_F(FiltersTest, NamesAndSizesArePrunedAsTheScanMatchedThem) {
  const auto names = [&](bool byName, bool byContent, bool bySize) {
    MatchByName = byName;
    MatchByContent = byContent;
    MatchBySize = bySize;
    show({{"x", "C:\\a", 10, 1}, {"y", "C:\\a", 20, 1}, {"k1", "C:\\a", 30, 1}});
    basFilterRefresh(form);
    return fileNames();
  };
  // Nothing but the match number: all stay.
  EXPECT_EQ(names(false, false, false).size(), 6u);
  // Among the names k1 (the first run, of two), k2, k3, x and y only the first run keeps a file.
  EXPECT_EQ(names(true, false, false).size(), 1u);
  // The sizes 10, 20 and 30 stand alone.
  EXPECT_THAT(names(false, true, false), UnorderedElementsAre("k1", "k2", "k3"));
  EXPECT_THAT(names(false, false, true), UnorderedElementsAre("k1", "k2", "k3"));
}

TEST_F(FiltersTest, CursorStaysOnItsRow) {
  showData();
  select("b1");
  const int row = cursor();
  filter("b1", {"c:\\data", 0, 0});
  EXPECT_GT(row, 1);
  EXPECT_EQ(cursor(), row);
}

TEST_F(FiltersTest, RefreshShowsTheFirstPage) {
  makeFiles(100);
  for (Int32 file = 1; file <= FileCount; ++file)
    FileTable.FileStatus[statusMatch][file] = 0;
  build();
  fill("POS", 50);
  basFilterRefresh(form);
  EXPECT_EQ(firstOnPage(), 1);
}

TEST_F(FiltersTest, RowBehindThePageIsNotRestored) {
  showData();
  const int last = grid.rows().raw() - 1;
  select(last, last);
  basFilterRefresh(form);
  EXPECT_EQ(cursor(), 1);
}

// Not comparing two directories.

TEST_F(FiltersTest, PairStartsWithItsOwnBoxes) {
  showData();
  pick(0, "b1", {});
  EXPECT_THAT(asking(), ElementsAre("c:\\data\\sub", "0", "2"));
}

TEST_F(FiltersTest, OneDirectoryStaysInTheMenuAndStoresNothing) {
  showData();
  pick(1, "c1", {"c:\\database", 1, 2});
  EXPECT_THAT(captions(), ElementsAre("Set Directory 1", "c:\\database"));
  EXPECT_THAT(tags(), ElementsAre("", "c:\\database"));
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(FiltersTest, SecondChoiceReplacesTheFirst) {
  showData();
  pick(0, "a1", {"c:\\data", 0, 2});
  pick(0, "c1", {"c:\\database", 0, 2});
  EXPECT_THAT(tags(), ElementsAre("c:\\database", ""));
}

TEST_F(FiltersTest, CancelledChoiceLeavesTheOneBefore) {
  showData();
  pick(0, "a1", {"c:\\data", 0, 2});
  pick(0, "c1", {"", 0, 0});
  pick(1, "c1", {"", 0, 0});
  EXPECT_THAT(tags(), ElementsAre("c:\\data", ""));
  EXPECT_THAT(captions(), ElementsAre("c:\\data", "Set Directory 2"));
}

TEST_F(FiltersTest, SelectionIsCleared) {
  showData();
  pick(0, "a1", {"c:\\data", 0, 2});
  mnuFilterTwoDirs_Click(form, 2);
  EXPECT_THAT(tags(), ElementsAre("", ""));
  EXPECT_THAT(captions(), ElementsAre("Set Directory 1", "Set Directory 2"));
}

TEST_F(FiltersTest, PairIsStoredAndSaved) {
  makeProfile("Music");
  fillSlots(1);
  ProfileDirList[2].IncludeExtensions = "3";
  showData();
  pickPair(1, 1);
  EXPECT_THAT(slot(2), ElementsAre("c:\\data", "1", "3", "recurse"));
  EXPECT_THAT(slot(3), ElementsAre("c:\\database", "2", "", "recurse"));
  EXPECT_THAT(
      dialogBoxes.messages,
      ElementsAre("You need to rerun this profile to exclude comparisions between these two "
                  "directories.\r\nThese exclusions have been saved to the profile."));
  EXPECT_THAT(captions(), ElementsAre("Set Directory 1", "Set Directory 2"));
  EXPECT_THAT(tags(), ElementsAre("", ""));
  EXPECT_EQ(FileCount, 9);
  ProfileDirList[2] = ProfileDirList[3] = {};
  basLoadProfile("PROFILE");
  EXPECT_EQ(ProfileDirList[2].Dir, "c:\\data");
  EXPECT_EQ(ProfileDirList[3].IncludeExclude, "2");
}

TEST_F(FiltersTest, BoxLeftDimmedAlsoStoresThePair) {
  makeProfile("Music");
  showData();
  pickPair(0, 2);
  EXPECT_THAT(slot(1), ElementsAre("c:\\data", "1", _, ""));
  EXPECT_THAT(slot(2), ElementsAre("c:\\database", "2", "", ""));
}

TEST_F(FiltersTest, PairThatIsNotMadePermanentIsForgotten) {
  showData();
  pickPair(1, 0);
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_THAT(tags(), ElementsAre("", ""));
  EXPECT_THAT(captions(), ElementsAre("Set Directory 1", "Set Directory 2"));
}

// The answer given with the first of the two directories is not kept.
TEST_F(FiltersTest, AnswerOfACompletePairIsTheNextStart) {
  showData();
  pick(0, "a1", {"c:\\data", 1, 0});
  pick(1, "c1", {"c:\\database", 0, 0});
  EXPECT_EQ(asked.back().subDirectories, 0);
  pickPair(1, 0);
  pick(0, "a1", {});
  EXPECT_EQ(asked.back().subDirectories, 1);
}

// Nobody looks whether the slot behind the free one is free too.
TEST_F(FiltersTest, SecondOfThePairOverwritesWhatIsThere) {
  makeProfile("Music");
  fillSlots(3);
  ProfileDirList[2].Dir.clear();
  showData();
  pickPair(0, 1);
  EXPECT_EQ(ProfileDirList[2].Dir, "c:\\data");
  EXPECT_EQ(ProfileDirList[3].Dir, "c:\\database");
}

TEST_F(FiltersTest, PairWithoutASecondSlotIsReported) {
  makeProfile("Music");
  fillSlots(lastDirSlot - 1);
  showData();
  pickPair(0, 1);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("mnuFilterTwoDirs_Click", "Subscript out of range(9)")));
  EXPECT_EQ(ProfileDirList[lastDirSlot].Dir, "c:\\data");
  EXPECT_THAT(tags(), ElementsAre("c:\\data", "c:\\database"));
}

TEST_F(FiltersTest, FullListGrowsForAPair) {
  makeProfile("Music");
  fillSlots(lastDirSlot);
  showData();
  pickPair(0, 1);
  EXPECT_EQ(ProfileDirList[lastDirSlot + 2].Dir, "c:\\database");
}

TEST_F(FiltersTest, PairTakesTheFileAtTheCursorOfSeveral) {
  showData();
  select(rowOf("b1"), rowOf("c2"));
  mnuFilterTwoDirs_Click(form, 0);
  EXPECT_EQ(dialogBoxes.beeps, 0);
  EXPECT_EQ(asked.back().text, "c:\\data\\sub");
}

// Temporary entries.

TEST_F(FiltersTest, TemporaryEntriesGo) {
  showData();
  const Int32 directories = DirCount;
  RunState = runState::idle;
  bool existed = false;
  basAddDirToList("C:\\Data", dirKind::directory, noParent, existed);
  EXPECT_TRUE(existed);
  basAddFileToList("new", basFindDirInList("C:\\Data"), 1, {});
  EXPECT_EQ(FileCount, 10);
  basRemoveTemporaryEntries();
  EXPECT_EQ(FileCount, 9);
  EXPECT_EQ(DirCount, directories);
  EXPECT_THAT(fileNames(), Not(testing::Contains("new")));
}

}  // namespace
}  // namespace quernstoke
