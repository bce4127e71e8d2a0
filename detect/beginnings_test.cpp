#include "detect/beginnings.h"

#include <functional>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/scanState.h"
#include "detect/matchLoop.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr int blockLength = 8;

class BeginningsTest : public EngineTest {
 protected:
  BeginningsTest() {
    openLog();
    MatchByContent = MatchBySize = true;
    ContentPercentLimit = 100;
    CurrentMatchNum = -1;
    StartMode = startMode::newScan;
    allocateBlockPool(blockLength, 4);
  }

  // Compares these files as one group.
  void compareGroup(const std::vector<std::string>& contents) {
    std::vector<CatalogueFile> rows;
    for (const std::string& content : contents) {
      const std::string name = "f" + std::to_string(rows.size() + 1);
      disk.file("C:\\d\\" + name, content);
      rows.push_back({name, "C:\\d", static_cast<int>(content.size())});
    }
    compareAsOneGroup(rows);
  }
  void compareAsOneGroup(const std::vector<CatalogueFile>& rows, const char* mode = "SIZE") {
    buildCatalogue(rows);
    groupAll();
    basCompareFiles(mode);
  }

  std::vector<int> timesOpened() const {
    std::vector<int> times;
    for (Int32 file = 1; file <= FileCount; ++file)
      times.push_back(
          disk.count(DiskAction::open, "C:\\d\\" + std::string(FileTable.FileName[file])));
    return times;
  }
};

std::string block(int number) {
  return "head" + std::to_string(1000 + number);
}

std::vector<std::string> differentBlocks(int count) {
  std::vector<std::string> contents;
  for (int i = 0; i < count; ++i)
    contents.push_back(block(i));
  return contents;
}

// What a group of files of one block comes to if each pair is read anew. Files with the same number
// here are equal.
struct PairByPair {
  std::vector<int> reads;    // From the pool and from the files.
  std::vector<int> matches;  // The match number of each file.
};

PairByPair compareEachPair(const std::vector<int>& contents, int slots) {
  const int files = static_cast<int>(contents.size());
  int fromPool = 0;
  int fromFiles = 0;
  int lastMatch = -1;
  std::set<int> pooled;
  std::vector<int> matches(contents.size(), noMatch);
  const auto read = [&](int file, int left) {
    if (left >= 3 && pooled.contains(file)) {
      ++fromPool;
      return;
    }
    ++fromFiles;
    if (left >= 3 && static_cast<int>(pooled.size()) < slots) pooled.insert(file);
  };
  for (int primary = 0; primary < files; ++primary) {
    const int left = files - primary;
    bool numbered = false;
    for (int secondary = primary + 1; secondary < files; ++secondary) {
      if (matches[secondary] != noMatch) continue;
      read(primary, left);
      read(secondary, left);
      if (contents[primary] != contents[secondary]) continue;
      if (!std::exchange(numbered, true)) matches[primary] = ++lastMatch;
      matches[secondary] = matches[primary];
    }
    if (left > 2) pooled.erase(primary);
  }
  return {{fromPool, fromFiles}, matches};
}

// The same, of files that all differ.
std::vector<int> readsPairByPair(int files, int slots) {
  std::vector<int> contents(static_cast<std::size_t>(files));
  std::iota(contents.begin(), contents.end(), 0);
  return compareEachPair(contents, slots).reads;
}

std::vector<int> readsMade() {
  return {BufferReads.raw(), ActualReads.raw()};
}

class BeginningsReadCountTest : public BeginningsTest,
                                public testing::WithParamInterface<std::tuple<int, int>> {};

// The counters tell what the scan would have read pair by pair.
TEST_P(BeginningsReadCountTest, CountersAreThoseOfReadingEachPair) {
  const auto [files, slots] = GetParam();
  allocateBlockPool(blockLength, slots);
  compareGroup(differentBlocks(files));

  EXPECT_THAT(readsMade(), testing::ElementsAreArray(readsPairByPair(files, slots)));
  EXPECT_THAT(matchNumbers(), Each(noMatch));
}

INSTANTIATE_TEST_SUITE_P(AnyPoolAndGroup, BeginningsReadCountTest,
                         testing::Combine(testing::Values(3, 4, 10, 65, 200),
                                          testing::Values(1, 2, 3, 9, 64, 500)));

// How many contents there are among the files, and how many slots.
class BeginningsMatchTest : public BeginningsTest,
                            public testing::WithParamInterface<std::tuple<int, int>> {};

// Each file is found that equals another, however far it lies behind it, and those found no longer
// count.
TEST_P(BeginningsMatchTest, MatchesAndCountersAreThoseOfComparingEachPair) {
  constexpr int files = 300;
  const auto [kinds, slots] = GetParam();
  allocateBlockPool(blockLength, slots);
  std::vector<int> numbers;
  std::vector<std::string> contents;
  for (int i = 0; i < files; ++i) {
    numbers.push_back(i * i % kinds);
    contents.push_back(block(numbers.back()));
  }
  compareGroup(contents);

  const PairByPair expected = compareEachPair(numbers, slots);
  EXPECT_EQ(matchNumbers(), expected.matches);
  EXPECT_EQ(readsMade(), expected.reads);
}

INSTANTIATE_TEST_SUITE_P(AnyPool, BeginningsMatchTest,
                         testing::Combine(testing::Values(5, 127, 128, 129, 293),
                                          testing::Values(1, 3, 64, 500)));

// Those that an exclusion keeps apart are not read.
TEST_F(BeginningsTest, PairsKeptApartDoNotCount) {
  allocateBlockPool(blockLength, 10);
  setDirectory(1, "C:\\d", "1");
  setDirectory(2, "C:\\e", "2");
  std::vector<CatalogueFile> rows;
  for (const char* name : {"1", "2", "3", "4", "5", "6"}) {
    const std::string directory = rows.size() % 2 == 0 ? "C:\\d" : "C:\\e";
    disk.file(directory + "\\" + name, block(static_cast<int>(rows.size())));
    rows.push_back({name, directory, blockLength});
  }
  compareAsOneGroup(rows);

  EXPECT_THAT(readsMade(), ElementsAre(6, 6));
}

// Without a free slot asking fails for each pair, and each pair is asked for.
TEST_F(BeginningsTest, FullListOfDirectoriesFailsForEachPair) {
  for (int slot = 1; slot <= lastDirSlot; ++slot)
    setDirectory(slot, "C:\\d", "I");
  compareGroup(differentBlocks(4));

  EXPECT_EQ(dialogBoxes.messages,
            std::vector<std::string>(
                6, procedureError("basCompareFilesCheckExclusion", "Subscript out of range(9)")));
}

// Content is compared over the primary's length, so an empty primary equals all its group and
// nothing is read for it.
TEST_F(BeginningsTest, EmptyPrimaryMatchesAllThoughItsBeginningIsKnown) {
  std::vector<CatalogueFile> rows;
  for (const char* directory : {"C:\\a", "C:\\b", "C:\\c", "C:\\d"}) {
    const bool isEmpty = rows.size() == 1;
    disk.file(std::string(directory) + "\\f", isEmpty ? "" : block(static_cast<int>(rows.size())));
    rows.push_back({"f", directory, isEmpty ? 0 : blockLength});
  }
  compareAsOneGroup(rows, "NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(noMatch, 0, 0, 0));
}

// A file that fails once has a row of one pair, though more of its pairs are known to differ.
TEST_F(BeginningsTest, PrimaryThatFailedBeforePassesOverNothing) {
  disk.before = [failed = false](const DiskCall& call) mutable {
    const bool isSecondBlock =
        call.action == DiskAction::read && call.path == "C:\\d\\f2" && call.position == blockLength;
    if (isSecondBlock && !std::exchange(failed, true)) fail(FailureNumber::deviceError);
  };
  compareGroup({block(1) + block(2), block(1) + block(3), block(4) + block(4), block(1) + block(3),
                block(5) + block(5)});

  EXPECT_THAT(matchNumbers(), Each(noMatch));
}

TEST_F(BeginningsTest, EachFileOfAGroupIsOpenedOnceForItsFirstBlock) {
  compareGroup(differentBlocks(100));

  EXPECT_THAT(timesOpened(), Each(1));
}

TEST_F(BeginningsTest, FilesEqualAtTheirBeginningAreReadOnFromTheSecondBlock) {
  const std::string same = block(0);
  compareGroup({same + block(1), same + block(2), same + block(1), same + block(3)});

  EXPECT_THAT(matchNumbers(), ElementsAre(0, noMatch, 0, noMatch));
}

// Of a block longer than a page only a page is read at first, and only samples of that are looked
// at.
class LongBlockTest : public BeginningsTest {
 public:
  static constexpr int unsampled = 100;  // A place between two samples.
  static constexpr int secondPage = 5000;

 protected:
  static constexpr int longBlock = 8192;

  LongBlockTest() { allocateBlockPool(longBlock, 3); }

  // Blocks that are equal but for the number at one place.
  static std::vector<std::string> blocksThatDifferAt(int place, const std::vector<int>& numbers) {
    std::vector<std::string> contents;
    for (const int number : numbers) {
      contents.emplace_back(longBlock, '.');
      contents.back().replace(static_cast<std::size_t>(place), 4, std::to_string(1000 + number));
    }
    return contents;
  }
};

class HiddenDifferenceTest : public LongBlockTest, public testing::WithParamInterface<int> {};

TEST_P(HiddenDifferenceTest, MatchesAreThoseOfTheWholeBlocks) {
  compareGroup(blocksThatDifferAt(GetParam(), {1, 2, 1, 3, 2, 1}));

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 1, 0, noMatch, 1, 0));
}

TEST_P(HiddenDifferenceTest, CountersAreThoseOfReadingEachPair) {
  compareGroup(blocksThatDifferAt(GetParam(), {1, 2, 3, 4, 5, 6, 7}));

  EXPECT_THAT(readsMade(), testing::ElementsAreArray(readsPairByPair(7, 3)));
}

TEST_P(HiddenDifferenceTest, FilesAreNotOpenedForEachPair) {
  std::vector<int> numbers(60);
  std::iota(numbers.begin(), numbers.end(), 0);
  compareGroup(blocksThatDifferAt(GetParam(), numbers));

  EXPECT_THAT(timesOpened(), Each(testing::Le(3)));
}

INSTANTIATE_TEST_SUITE_P(AnyPlace, HiddenDifferenceTest,
                         testing::Values(LongBlockTest::unsampled, LongBlockTest::secondPage));

TEST_F(LongBlockTest, DifferencesInTheSamplesAreFoundWithOneOpeningEach) {
  compareGroup(blocksThatDifferAt(0, {1, 2, 3, 4, 5, 6, 7}));

  EXPECT_THAT(timesOpened(), Each(1));
  EXPECT_THAT(readsMade(), testing::ElementsAreArray(readsPairByPair(7, 3)));
}

// A pair that is told apart by memory leaves its block in the pool as one still to be read.
class PooledUnreadTest : public BeginningsTest {
 protected:
  // f2 gets the only slot when it is told apart from f3, and is then compared with f4, its equal.
  void compareWith(std::function<void()> beforeF4) {
    allocateBlockPool(blockLength, 1);
    int opens = 0;
    disk.before = [=, this](const DiskCall& call) mutable {
      if (call.action == DiskAction::open && call.path == "C:\\d\\f2" && ++opens == 2) beforeF4();
    };
    compareGroup({block(1), block(2), block(3), block(2), block(4)});
  }
};

TEST_F(PooledUnreadTest, BlockIsReadWhenItIsNeeded) {
  compareWith([] {});

  EXPECT_THAT(matchNumbers(), ElementsAre(noMatch, 0, noMatch, 0, noMatch));
  EXPECT_THAT(timesOpened(), ElementsAre(1, 2, 1, 2, 1));
}

TEST_F(PooledUnreadTest, FileThatHasChangedMeanwhileIsNoMatch) {
  compareWith([this] { disk.file("C:\\d\\f2", block(5)); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
}

TEST_F(PooledUnreadTest, FileThatIsGoneMeanwhileIsUnreadable) {
  compareWith([this] { disk.erase("C:\\d\\f2"); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(FileTable.FileStatus[statusState][2], fileState::unreadable);
}

TEST_F(PooledUnreadTest, FileThatCannotBeReadMeanwhileIsUnreadableAndLogged) {
  compareWith([this] { disk.failOn(DiskAction::read, "C:\\d\\f2", FailureNumber::deviceError); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(FileTable.FileStatus[statusState][2], fileState::unreadable);
  EXPECT_THAT(logLines(), testing::Contains("Error reading from file C:\\d\\f2"));
}

// What was read long ago may tell two files apart. For a match both are looked at again.
class StaleBeginningTest : public BeginningsTest, public testing::WithParamInterface<int> {
 protected:
  // f2 and f3 begin alike. When that is known, and before they are compared, something happens to
  // one of them.
  void compareWith(std::function<void()> happening) {
    allocateBlockPool(blockLength, 1);
    disk.before = [happening, happened = false](const DiskCall& call) mutable {
      if (happened || call.action != DiskAction::open || call.path != "C:\\d\\f4") return;
      happened = true;
      happening();
    };
    compareGroup({block(1), block(2), block(2), block(3)});
  }
  static int state() { return FileTable.FileStatus[statusState][GetParam()].raw(); }

  const std::string path_ = "C:\\d\\f" + std::to_string(GetParam());
};

TEST_P(StaleBeginningTest, FilesThatAreStillAlikeMatch) {
  compareWith([] {});

  EXPECT_THAT(matchNumbers(), ElementsAre(noMatch, 0, 0, noMatch));
}

TEST_P(StaleBeginningTest, FileThatIsGoneMeanwhileMakesNoMatch) {
  compareWith([this] { disk.erase(path_); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(state(), fileState::unreadable);
}

TEST_P(StaleBeginningTest, FileThatCannotBeReadMeanwhileMakesNoMatch) {
  compareWith([this] { disk.failOn(DiskAction::read, path_, FailureNumber::deviceError); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(state(), fileState::unreadable);
  EXPECT_THAT(logLines(), testing::Contains("Error reading from file " + path_));
}

TEST_P(StaleBeginningTest, FileThatWasOverwrittenMeanwhileMakesNoMatch) {
  compareWith([this] { disk.file(path_, block(5)); });

  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(state(), fileState::normal);
}

INSTANTIATE_TEST_SUITE_P(PrimaryAndSecondary, StaleBeginningTest, testing::Values(2, 3));

TEST_F(BeginningsTest, AFileThatCannotBeReadIsTriedByEachPrimary) {
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::open && call.path == "C:\\d\\f4")
      fail(FailureNumber::permissionDenied);
  };
  compareGroup(differentBlocks(6));

  // By the first three as their secondary and once, in vain, as primary.
  EXPECT_THAT(timesOpened(), ElementsAre(1, 1, 1, 4, 1, 1));
  EXPECT_EQ(FileTable.FileStatus[statusState][4], fileState::unreadable);
}

TEST_F(BeginningsTest, NothingIsRememberedFromOneGroupToTheNext) {
  compareGroup(differentBlocks(5));
  disk.calls.clear();
  compareGroup(differentBlocks(5));

  EXPECT_THAT(timesOpened(), Each(1));
}

TEST_F(BeginningsTest, FilesWithLocalCopiesAreReadFromThese) {
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  allocateBlockPool(blockLength, 1);
  compareGroup(differentBlocks(5));

  EXPECT_GT(LocalReads, 0);
}

}  // namespace
}  // namespace quernstoke
