#include "detect/contentCompareTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using ContentStatusTest = ContentCompareTest;

TEST_F(ContentStatusTest, ShortComparisonNeitherReportsNorYields) {
  comparePair(differentBlocks(9), differentBlocks(9));
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 0);
}

TEST_F(ContentStatusTest, TenBlocksAreReportedAtTheEnd) {
  comparePair(differentBlocks(10), differentBlocks(10));
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Scanning duplicates..."));
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ContentStatusTest, LongComparisonNamesItsFileAtTheEleventhBlock) {
  int readsSeen = 0;
  eventLoop.onYield = [&] {
    if (eventLoop.yields == 1) readsSeen = ActualReads.raw();
  };
  comparePair(differentBlocks(60), differentBlocks(60));
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Checking a  [ Size 240 ]", "Scanning duplicates..."));
  EXPECT_EQ(readsSeen, 20);
  EXPECT_EQ(eventLoop.yields, 2);
  EXPECT_THAT(statusWindow.labels, IsEmpty());
}

TEST_F(ContentStatusTest, DifferenceInTheEleventhBlockIsReportedToo) {
  comparePair(differentBlocks(11), withChangedByte(differentBlocks(11), 1));
  EXPECT_THAT(statusWindow.statusTexts, SizeIs(2));
}

TEST_F(ContentStatusTest, DifferenceInTheTenthBlockIsNot) {
  comparePair(differentBlocks(10), withChangedByte(differentBlocks(10), 1));
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
}

TEST_F(ContentStatusTest, LongNamesAreCutAndSizesGrouped) {
  BlockSize = 100'000;
  makeGroup({"", ""});
  FileTable.FileSize[primary] = 1'234'567;
  const std::string name = "A file name that is just forty long.flac";
  for (const std::string& shown : {name, name + "."}) {
    FileTable.FileName.set(primary, shown);
    disk.file("C:\\d\\" + shown, "");
    compare();
  }
  EXPECT_THAT(
      statusWindow.statusTexts,
      ElementsAre("Checking " + name + "  [ Size 1,234,567 ]", "Scanning duplicates...",
                  "Checking " + name + "...  [ Size 1,234,567 ]", "Scanning duplicates..."));
}

TEST_F(ContentStatusTest, LongViewShowsThePercentageEveryThousandBlocks) {
  ScanDetailsShown = true;
  allocateBlockPool(1, 1);
  const std::string content(3000, 'x');
  comparePair(content, content);
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Loading / comparing file content (33%)",
                          "Loading / comparing file content (67%)", "Scanning duplicates..."));
  EXPECT_EQ(statusWindow.labels["labFile1"], "C:\\d\\a");
}

TEST_F(ContentStatusTest, LongViewIsLeftAloneUntilBlockAThousand) {
  ScanDetailsShown = true;
  allocateBlockPool(1, 1);
  comparePair(std::string(1000, 'x'), std::string(1000, 'x'));
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Scanning duplicates..."));
}

TEST_F(ContentStatusTest, FilesAreClosedBeforeTheLastYield) {
  eventLoop.onYield = [&] { expectOnlyTheLogOpen(); };
  comparePair(differentBlocks(10), differentBlocks(10));
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ContentStatusTest, ComparisonThatSucceedsLogsNothing) {
  makeGroupOfCopies("abc");
  compare(primary, secondary);
  compare(primary, third);
  EXPECT_THAT(logLines(), IsEmpty());
}

}  // namespace
}  // namespace quernstoke
