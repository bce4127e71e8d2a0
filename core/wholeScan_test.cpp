#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Scans of a tree below C:\Data from the walk to the results.
class WholeScanTest : public EngineTest {
 protected:
  WholeScanTest() {
    start();
    makeProfile("Tree");
    ProfileSettings.MinimumSize = 0;
    setDirectory(1, "C:\\Data", "I");
    disk.directory("C:\\Data");
  }

  void file(const std::string& path, const std::string& content) {
    disk.file("C:\\Data\\" + path, content);
  }
  static void scan(const std::string& letters) {
    ProfileSettings.MatchingCriteria = letters;
    StartMode = startMode::newScan;
    basStartScan();
  }
  // The files of each match number, in the order of the numbers, by path below C:\Data.
  static std::vector<std::string> groups() {
    std::map<int, std::vector<std::string>> byNumber;
    const std::vector<std::string> paths = filePaths();
    const std::vector<int> numbers = matchNumbers();
    for (std::size_t i = 0; i < paths.size(); ++i)
      byNumber[numbers[i]].push_back(paths[i].substr(8));
    std::vector<std::string> result;
    for (auto& [number, group] : byNumber) {
      std::sort(group.begin(), group.end());
      std::string line = std::to_string(number) + ":";
      for (const std::string& path : group)
        line += " " + path;
      result.push_back(line);
    }
    return result;
  }
};

struct LettersCase {
  const char* letters;
  std::vector<std::string> groups;
  int duplicates;
};

class MatchingCriteriaTest : public WholeScanTest,
                             public testing::WithParamInterface<LettersCase> {};

TEST_P(MatchingCriteriaTest, DecideWhatIsFound) {
  file("a\\song.mp3", "tune1");
  file("a\\notes.txt", "longer text");
  file("a\\lone.txt", "nobody else");
  file("b\\song.mp3", "tune1");
  file("b\\notes.txt", "longer text");
  file("b\\nine.txt", "nine char");
  file("c\\song.mp3", "tune2");
  file("c\\copy.mp3", "tune1");
  file("c\\notes.txt", "short txt");
  scan(GetParam().letters);

  EXPECT_EQ(groups(), GetParam().groups);
  EXPECT_EQ(ProfileSettings.NumDuplicates, GetParam().duplicates);
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(windows.back(), "frmResults show");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.openFiles(), 0);
}

const std::vector<std::string> bySize = {"0: a\\song.mp3 b\\song.mp3 c\\copy.mp3 c\\song.mp3",
                                         "1: b\\nine.txt c\\notes.txt",
                                         "2: a\\lone.txt a\\notes.txt b\\notes.txt"};
const std::vector<std::string> byContent = {"0: a\\song.mp3 b\\song.mp3 c\\copy.mp3",
                                            "1: a\\notes.txt b\\notes.txt"};
const std::vector<std::string> byName = {"0: a\\notes.txt b\\notes.txt c\\notes.txt",
                                         "1: a\\song.mp3 b\\song.mp3 c\\song.mp3"};
// The pass by size has nothing left to compare, but prunes: notes.txt of a size of its own...
const std::vector<std::string> byNameAndSize = {"0: a\\notes.txt b\\notes.txt",
                                                "1: a\\song.mp3 b\\song.mp3 c\\song.mp3"};
// ...or the second of the two smallest files, the first run of the list counting one short.
const std::vector<std::string> byNameAndContent = {"0: a\\notes.txt b\\notes.txt",
                                                   "1: a\\song.mp3"};

INSTANTIATE_TEST_SUITE_P(
    Letters, MatchingCriteriaTest,
    testing::Values(LettersCase{"", bySize, 6}, LettersCase{"N", byName, 4},
                    LettersCase{"C", byContent, 3}, LettersCase{"S", bySize, 6},
                    LettersCase{"NC", byNameAndContent, 2}, LettersCase{"NS", byNameAndSize, 4},
                    LettersCase{"CS", byContent, 3}, LettersCase{"NCS", byNameAndContent, 2}),
    [](const auto& letters) {
      const std::string name = letters.param.letters;
      return name.empty() ? "None" : name;
    });

// The first run of the sorted list counts one short.
TEST_F(WholeScanTest, PairOfTheSmallestFilesIsLost) {
  file("one", "aaa");
  file("two", "aaa");
  file("three", "bbbbb");
  file("four", "bbbbb");
  scan("C");

  EXPECT_THAT(groups(), ElementsAre("0: four three"));
}

TEST_F(WholeScanTest, ThreeOfTheSmallestFilesAreFound) {
  file("one", "aaa");
  file("two", "aaa");
  file("three", "aaa");
  scan("C");

  EXPECT_THAT(groups(), ElementsAre("0: one three two"));
}

TEST_F(WholeScanTest, OneFileHasNothingToBeComparedWith) {
  file("one", "aaa");
  scan("C");

  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(ActualReads, 0);
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
}

TEST_F(WholeScanTest, WithoutFilesTheResultsOpenAllTheSame) {
  scan("NCS");

  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(windows.back(), "frmResults show");
}

TEST_F(WholeScanTest, NamesThatDifferInLetterCaseAreDifferent) {
  for (const char* directory : {"a\\", "b\\"}) {
    file(std::string(directory) + "0", "first run");
    file(std::string(directory) + "read.me", "x");
  }
  file("c\\Read.me", "x");
  scan("N");

  EXPECT_THAT(groups(), ElementsAre("0: a\\read.me b\\read.me"));
}

// Numbers are kept through the pass by size, which only prunes.
TEST_F(WholeScanTest, NameAndSizeCanLeaveANumberToOneFile) {
  file("a\\song", "55555");
  file("b\\song", "55555");
  file("c\\song", "55555");
  file("a\\text", "4444");
  file("b\\text", "666666");
  scan("NS");

  EXPECT_THAT(groups(), ElementsAre("0: a\\song b\\song c\\song", "1: a\\text"));
  EXPECT_EQ(DuplicateCount, 3);
}

TEST_F(WholeScanTest, FilesOfOneSizeWithDifferentNumbersStayApart) {
  for (const char* directory : {"a\\", "b\\", "c\\"}) {
    file(std::string(directory) + "song", "12345");
    file(std::string(directory) + "text", "12345");
  }
  scan("NCS");

  EXPECT_THAT(groups(), ElementsAre("0: a\\song b\\song c\\song", "1: a\\text b\\text c\\text"));
}

TEST_F(WholeScanTest, StatusTellsTheStagesOfTheScan) {
  file("a\\song", "12345");
  file("b\\song", "12345");
  file("c\\song", "12345");
  scan("NS");

  // Three primaries move the status once; the second pass skips their group.
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Initializing...", "Building file list...  ",
                          "Searching for duplicates...", "Searching for duplicates...",
                          "Refining file list...", "Searching for duplicates..."));
}

TEST_F(WholeScanTest, ExcludedPairOfDirectoriesIsNotCompared) {
  file("0", "first run");
  file("a\\song", "tune1 tune1");
  file("b\\song", "tune1 tune1");
  setDirectory(2, "C:\\Data\\a", "1");
  setDirectory(3, "C:\\Data\\b", "2");
  scan("C");

  EXPECT_THAT(groups(), IsEmpty());
  EXPECT_EQ(ActualReads, 0);
}

// The third directory's file is the first primary here and takes both with it.
TEST_F(WholeScanTest, ExcludedPairCanMeetInTheMatchOfAThirdFile) {
  file("a\\song", "tune1");
  file("b\\song", "tune1");
  file("c\\song", "tune1");
  setDirectory(2, "C:\\Data\\a", "1");
  setDirectory(3, "C:\\Data\\b", "2");
  scan("C");

  EXPECT_THAT(groups(), ElementsAre("0: a\\song b\\song c\\song"));
}

TEST_F(WholeScanTest, LocalCopiesServeTheirGroupAndAreGoneAfterwards) {
  file("a", "aaaa");
  file("b", "bbbb");
  file("c", "cccc");
  ProfileSettings.SlowNetwork = true;
  GlobalSettings.NumberOfFileBuffers = 1;
  bool hadCopies = false;
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::remove && call.path == TempDir + "\\TMP1")
      hadCopies = disk.exists(TempDir + "\\TMP2");
  };
  scan("C");

  EXPECT_TRUE(hadCopies);
  EXPECT_EQ(ActualReads, 3);
  EXPECT_EQ(BufferReads, 1);
  EXPECT_EQ(LocalReads, 2);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
  EXPECT_THAT(logLines(), IsEmpty());
}

}  // namespace
}  // namespace quernstoke
