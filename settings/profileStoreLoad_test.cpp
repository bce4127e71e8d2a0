#include "settings/profileStoreTest.h"
#include "testing/startUpState.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProfileLoadTest : public ProfileStoreTest {
 protected:
  // Loads a profile whose record after the first can't be taken.
  void expectLoadEnds(const std::string& badRecord, const std::string& reason) {
    SCOPED_TRACE(badRecord);
    ProfileSettings.Desc.clear();
    ProfileSettings.MatchingCriteria.clear();
    dialogBoxes.messages.clear();
    const int openBefore = disk.openFiles();

    EXPECT_FALSE(loadProfile("Desc\t0\tbefore\tS\r" + badRecord + "MatchingCriteria\t0\tN\tS\r"));
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basLoadProfile", reason)));
    EXPECT_EQ(ProfileSettings.Desc, "before");
    EXPECT_EQ(ProfileSettings.MatchingCriteria, "");
    EXPECT_EQ(disk.openFiles(), openBefore + 1);
  }
};

TEST_F(ProfileLoadTest, MissingProfileChangesNothing) {
  fillProfileSettings();
  disk.file(globalPath, "TempPath\t0\tD:\\scratch\tS\r");

  EXPECT_FALSE(basLoadProfile("PROFILE"));
  EXPECT_FALSE(basLoadProfile(""));
  EXPECT_EQ(GlobalSettings.TempPath, "");
  EXPECT_EQ(savedProfile(), fullProfile);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileLoadTest, EmptyModeLoadsBoth) {
  disk.file(globalPath, "TempPath\t0\tD:\\scratch\tS\r");
  disk.file(profilePath, fullProfile);

  EXPECT_TRUE(basLoadProfile(""));
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "NCS");
  EXPECT_EQ(GlobalSettings.TempPath, "D:\\scratch");
}

TEST_F(ProfileLoadTest, LoadingInAnyOtherModeDoesNothingAndSucceeds) {
  disk.calls.clear();

  EXPECT_TRUE(basLoadProfile("NEWPROFILE"));
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(ProfileLoadTest, LoadingEmptiesTheDirectoriesButKeepsSettingsThatTheFileLacks) {
  fillProfileSettings();
  EXPECT_TRUE(loadProfile("MinimumSize\t0\t9\tN\rDir\t2\tC:\\b\tS\r"));

  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_EQ(ProfileDirList[2].Dir, "C:\\b");
  EXPECT_EQ(ProfileSettings.MinimumSize, 9);
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "NCS");
}

TEST_F(ProfileLoadTest, UnknownKeyIsToldAndTheOthersLoad) {
  EXPECT_TRUE(loadProfile("Colour\t0\tred\tS\rMinimumSize\t0\t9\tN\r"));

  EXPECT_EQ(ProfileSettings.MinimumSize, 9);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Invalid config setting Colour data ignored"));
}

TEST_F(ProfileLoadTest, KeysCountByLetterCase) {
  EXPECT_TRUE(loadProfile("minimumsize\t0\t9\tN\r"));

  EXPECT_EQ(ProfileSettings.MinimumSize, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Invalid config setting minimumsize data ignored"));
}

TEST_F(ProfileLoadTest, EmptyKeyIsPassedOverWithoutAWord) {
  EXPECT_TRUE(loadProfile("\r\t0\tx\tS\rMinimumSize\t0\t9\tN\r"));

  EXPECT_EQ(ProfileSettings.MinimumSize, 9);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileLoadTest, FileWithLineFeedsKeepsItsFirstSettingOnly) {
  EXPECT_TRUE(loadProfile("Desc\t0\tedited\tS\r\nMinimumSize\t0\t9\tN\r\n"));

  EXPECT_EQ(ProfileSettings.Desc, "edited");
  EXPECT_EQ(ProfileSettings.MinimumSize, 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Invalid config setting \nMinimumSize data ignored"));
}

TEST_F(ProfileLoadTest, FileCutAnywhereLoadsTheRecordsThatAreWhole) {
  const std::string end = "NumDuplicates\t0\t70005\tN\r";
  const std::size_t whole = fullProfile.find(end) + end.size();
  for (std::size_t length = 0; length < whole; ++length) {
    resetToStartUpState();
    ProfilesDir = "C:\\Quernstoke\\Profiles";
    ProfileName = "Ann";
    ASSERT_TRUE(loadProfile(fullProfile.substr(0, length)));
    const bool hasCriteria = length >= fullProfile.find("ProcessZip");
    ASSERT_EQ(ProfileSettings.MatchingCriteria, hasCriteria ? "NCS" : "") << length;
    ASSERT_EQ(ProfileSettings.NumDuplicates, 0) << length;
  }
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(ProfileLoadTest, LettersInANumberAreToldAndCountAsZero) {
  ProfileSettings.MinimumSize = 5;
  EXPECT_TRUE(loadProfile("MinimumSize\t0\t12x\tN\rMaximumSize\t0\t9\tN\r"));

  EXPECT_EQ(ProfileSettings.MinimumSize, 0);
  EXPECT_EQ(ProfileSettings.MaximumSize, 9);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Config setting MinimumSize is not numeric, zero used"));
}

// The test for a number comes before the key is looked at.
TEST_F(ProfileLoadTest, LettersInANumberOfNoSettingAreToldToo) {
  EXPECT_TRUE(loadProfile("Colour\t0\tred\tN\r\t0\tred\tN\r"));

  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Config setting Colour is not numeric, zero used",
                                                "Invalid config setting Colour data ignored",
                                                "Config setting  is not numeric, zero used"));
}

TEST_F(ProfileLoadTest, NumericSettingInATextRecordTakesTheNumberReadBefore) {
  EXPECT_TRUE(
      loadProfile("MinimumSize\t0\t9\tS\r"
                  "Colour\t0\t77\tN\r"
                  "MaximumSize\t0\t9\tS\r"
                  "RunMode\t0\t9\tB\r"));

  EXPECT_EQ(ProfileSettings.MinimumSize, 0);
  EXPECT_EQ(ProfileSettings.MaximumSize, 77);
  EXPECT_EQ(ProfileSettings.RunMode, 77);
}

TEST_F(ProfileLoadTest, NumberFromAnEarlierFileIsForgotten) {
  loadProfile("MinimumSize\t0\t9\tN\r");
  loadProfile("MinimumSize\t0\t5\tS\r");

  EXPECT_EQ(ProfileSettings.MinimumSize, 0);
}

TEST_F(ProfileLoadTest, ElapsedTimeBecomesAWholeNumber) {
  loadProfile("ElapsedTime\t0\t13.5\tN\r");
  EXPECT_EQ(ProfileSettings.ElapsedTime, 14);
  loadProfile("ElapsedTime\t0\t12.5\tN\r");
  EXPECT_EQ(ProfileSettings.ElapsedTime, 12);
}

TEST_F(ProfileLoadTest, NumberTooLargeForItsFieldEndsTheLoadWithTheFileOpen) {
  expectLoadEnds("RunMode\t0\t32768\tN\r", "Overflow(6)");
  expectLoadEnds("MatchNum\t0\t-32769\tN\r", "Overflow(6)");
  expectLoadEnds("ContentMatchingPercent\t0\t70000\tN\r", "Overflow(6)");
  expectLoadEnds("RestartPoint\t0\t70000\tN\r", "Overflow(6)");
  expectLoadEnds("MinimumSize\t0\t2147483648\tN\r", "Overflow(6)");
}

TEST_F(ProfileLoadTest, BadBooleanEndsTheLoad) {
  expectLoadEnds("ProcessZip\t0\tperhaps\tB\r", "Type mismatch(13)");
  expectLoadEnds("ProcessZip\t0\t\tB\r", "Type mismatch(13)");
  expectLoadEnds("RecurseSubDirs\t1\tyes\tB\r", "Type mismatch(13)");
}

TEST_F(ProfileLoadTest, BooleansMayBeWordsInAnyCaseAndNumbers) {
  loadProfile(
      "ProcessZip\t0\ttRUE\tB\r"
      "SlowNetwork\t0\t-1\tB\r"
      "ScanHiddenFiles\t0\t7\tN\r");
  EXPECT_TRUE(ProfileSettings.ProcessZip);
  EXPECT_TRUE(ProfileSettings.SlowNetwork);
  EXPECT_TRUE(ProfileSettings.ScanHiddenFiles);

  loadProfile("ProcessZip\t0\tfalse\tB\rSlowNetwork\t0\t0\tB\r");
  EXPECT_FALSE(ProfileSettings.ProcessZip);
  EXPECT_FALSE(ProfileSettings.SlowNetwork);
}

TEST_F(ProfileLoadTest, DirectoryIndexOutsideTheSlotsEndsTheLoad) {
  expectLoadEnds("Dir\t129\tC:\\a\tS\r", "Subscript out of range(9)");
  expectLoadEnds("IncludeExclude\t129\tI\tS\r", "Subscript out of range(9)");
  expectLoadEnds("IncludeExtensions\t-1\t0\tS\r", "Subscript out of range(9)");
  expectLoadEnds("RecurseSubDirs\t-1\tTrue\tB\r", "Subscript out of range(9)");
}

TEST_F(ProfileLoadTest, IndexThatIsNoNumberIsToldAndReadsAsZero) {
  EXPECT_TRUE(loadProfile("Dir\tone\tC:\\a\tS\rDir\t2\tC:\\b\tS\r"));

  EXPECT_EQ(ProfileDirList[0].Dir, "C:\\a");
  EXPECT_EQ(ProfileDirList[2].Dir, "C:\\b");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Type mismatch(13)")));
}

TEST_F(ProfileLoadTest, FileThatMayOnlyBeReadLoads) {
  disk.file(profilePath, fullProfile);
  disk.setAttributes(profilePath, attributeReadOnly);

  EXPECT_TRUE(basLoadProfile("PROFILE"));
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "NCS");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileLoadTest, FileThatMayNotBeReadIsToldAfterTheDirectoriesWereEmptied) {
  fillProfileSettings();
  disk.failOn(DiskAction::open, profilePath, FailureNumber::permissionDenied);

  EXPECT_FALSE(loadProfile(fullProfile));
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "NCS");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadProfile", "Permission denied(70)")));
}

TEST_F(ProfileLoadTest, LostDiskEndsTheLoad) {
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::read) fail(FailureNumber::deviceError);
  };

  EXPECT_FALSE(loadProfile("Desc\t0\ta\tS\r"));

  EXPECT_EQ(dialogBoxes.messages.back(), procedureError("basLoadProfile", "Device I/O error(57)"));
}

TEST_F(ProfileLoadTest, FailedReadCostsOneRecord) {
  disk.failOn(DiskAction::read, profilePath, FailureNumber::deviceError, 3);

  EXPECT_TRUE(loadProfile("Desc\t0\ta\tS\rMinimumSize\t0\t9\tN\r"));
  EXPECT_EQ(ProfileSettings.Desc, "");
  EXPECT_EQ(ProfileSettings.MinimumSize, 9);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Device I/O error(57)"),
                          "Invalid config setting sc data ignored"));
}

}  // namespace
}  // namespace quernstoke
