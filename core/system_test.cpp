#include "core/system.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class SystemTest : public EngineTest {
 protected:
  // Opens C:\a.txt with the answer that the desktop gives.
  std::string openAnswered(std::int32_t answer) {
    desk.shellAnswer = answer;
    return open("C:\\a.txt");
  }
  std::string open(std::string_view file, ShowMode showMode = ShowMode::byDefault,
                   std::string_view parameters = "", std::string_view directory = "") {
    return basShellOpen(file, showMode, parameters, directory, "open", 7);
  }
  // A drive of 1,000,000 bytes with 250,000 free.
  void quarterFree() { desk.space = DiskSpace{2, 500, 250, 1000}; }
};

TEST_F(SystemTest, WithoutParametersAFileIsOpenedNormally) {
  EXPECT_EQ(open("C:\\a.txt"), "OK");
  ASSERT_EQ(desk.opened.size(), 1u);
  EXPECT_EQ(desk.opened[0].operation, "open");
  EXPECT_EQ(desk.opened[0].file, "C:\\a.txt");
  EXPECT_EQ(desk.opened[0].parameters, "");
  EXPECT_EQ(desk.opened[0].directory, "");
  // Whatever show mode was asked for.
  EXPECT_EQ(desk.opened[0].showMode, ShowMode::normal);
  EXPECT_EQ(desk.opened[0].window, 7);
}

TEST_F(SystemTest, ParametersOrADirectoryKeepTheShowMode) {
  open("C:\\a.txt", ShowMode::byDefault, "/p");
  open("C:\\a.txt", ShowMode::byDefault, "", "C:\\");
  ASSERT_EQ(desk.opened.size(), 2u);
  EXPECT_EQ(desk.opened[0].parameters, "/p");
  EXPECT_EQ(desk.opened[0].showMode, ShowMode::byDefault);
  EXPECT_EQ(desk.opened[1].directory, "C:\\");
  EXPECT_EQ(desk.opened[1].showMode, ShowMode::byDefault);
}

// Without parameters or a directory a program is shown as any other file is.
TEST_F(SystemTest, AProgramIsHiddenOnlyWithParameters) {
  open("C:\\a.Exe.txt", ShowMode::byDefault, "/p");
  open("C:\\a.exe");
  ASSERT_EQ(desk.opened.size(), 2u);
  EXPECT_EQ(desk.opened[0].showMode, ShowMode::hidden);
  EXPECT_EQ(desk.opened[1].showMode, ShowMode::normal);
}

TEST_F(SystemTest, OpeningSucceedsBelowZeroAndAbove32) {
  for (const std::int32_t answer : {33, 42, 2147483647, -1})
    EXPECT_EQ(openAnswered(answer), "OK") << answer;
}

TEST_F(SystemTest, OnlyAMissingAssociationIsTold) {
  EXPECT_EQ(openAnswered(31), "NOASSOC");
  for (const std::int32_t answer : {0, 2, 3, 5, 8, 11, 26, 27, 28, 29, 30, 32, 1, 20})
    EXPECT_EQ(openAnswered(answer), "") << answer;
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(SystemTest, AFailureToOpenIsIgnored) {
  desk.failure = FailureNumber::outOfMemory;
  EXPECT_EQ(open("C:\\a.txt"), "");
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(SystemTest, TheDocumentsAreFolderFive) {
  EXPECT_EQ(basGetSpecialFolder(5), "C:\\Users\\Ann\\Documents");
  EXPECT_EQ(basGetSpecialFolder(6), "");
  desk.documents.reset();
  EXPECT_EQ(basGetSpecialFolder(5), "");
}

TEST_F(SystemTest, TheWrappersLeaveTheirFailuresToTheCaller) {
  desk.failure = FailureNumber::deviceError;
  EXPECT_THROW(basGetSpecialFolder(5), Failure);
  EXPECT_THROW(basGetDiskSpace("C:\\", "FREEBYTES"), Failure);
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(SystemTest, DiskSpaceIsClustersTimesSectorsTimesBytes) {
  quarterFree();
  EXPECT_EQ(basGetDiskSpace("D:\\", "FREEBYTES"), "250,000");
  EXPECT_EQ(basGetDiskSpace("D:\\", "TOTALBYTES"), "1,000,000");
  EXPECT_EQ(DiskFreeBytes.toDouble(), 250000);
  EXPECT_EQ(desk.askedDrive, "D:\\");
}

// The two names are swapped, and callers count on that.
TEST_F(SystemTest, FreePercentTellsWhatIsUsedAndUsedPercentWhatIsFree) {
  quarterFree();
  EXPECT_EQ(basGetDiskSpace("C:\\", "FREEPCNT"), "75.00%");
  EXPECT_EQ(basGetDiskSpace("C:\\", "USEDPCNT"), "25.00%");
}

TEST_F(SystemTest, DiskSpaceKeysIgnoreCase) {
  quarterFree();
  EXPECT_EQ(basGetDiskSpace("C:\\", "freeBytes"), "250,000");
}

TEST_F(SystemTest, TheRootPathIsCutToThreeCharacters) {
  quarterFree();
  EXPECT_EQ(basGetDiskSpace("C:\\Temp", "ROOTPATH"), "C:\\");
  EXPECT_EQ(desk.askedDrive, "C:\\Temp");
}

TEST_F(SystemTest, AnyOtherKeyTellsWhetherTheDriveAnswered) {
  quarterFree();
  EXPECT_EQ(basGetDiskSpace("C:\\", ""), "1");
  desk.space.reset();
  EXPECT_EQ(basGetDiskSpace("C:\\", "SIZE"), "0");
}

TEST_F(SystemTest, ADriveThatDoesNotAnswerHasNoRootAndNoSpace) {
  quarterFree();
  basGetDiskSpace("C:\\", "FREEBYTES");
  desk.space.reset();
  EXPECT_EQ(basGetDiskSpace("C:\\", "ROOTPATH"), "");
  EXPECT_EQ(basGetDiskSpace("C:\\", "FREEBYTES"), "0");
  EXPECT_EQ(basGetDiskSpace("C:\\", "TOTALBYTES"), "0");
  EXPECT_EQ(basGetDiskSpace("C:\\", "FREEPCNT"), "0.00%");
  EXPECT_EQ(basGetDiskSpace("C:\\", "USEDPCNT"), "0.00%");
  EXPECT_EQ(DiskFreeBytes, FixedPoint());
}

// As some file systems that keep nothing answer.
TEST_F(SystemTest, ADriveOfNoSizeIsNeitherFreeNorUsed) {
  desk.space = DiskSpace{1, 512, 0, 0};
  EXPECT_EQ(basGetDiskSpace("C:\\", "FREEPCNT"), "0.00%");
  EXPECT_EQ(basGetDiskSpace("C:\\", "USEDPCNT"), "0.00%");
}

TEST_F(SystemTest, LargeDrivesAreCountedInFull) {
  desk.space = DiskSpace{64, 512, 100000000, 100000000};
  EXPECT_EQ(basGetDiskSpace("C:\\", "TOTALBYTES"), "3,276,800,000,000");
  EXPECT_EQ(DiskFreeBytes.toDouble(), 3276800000000.0);
}

TEST_F(SystemTest, NumbersAreWrittenAsThePersonWritesThem) {
  quarterFree();
  locale.thousands = ".";
  locale.point = ",";
  EXPECT_EQ(basGetDiskSpace("C:\\", "TOTALBYTES"), "1.000.000");
  EXPECT_EQ(basGetDiskSpace("C:\\", "USEDPCNT"), "25,00%");
}

}  // namespace
}  // namespace quernstoke
