#include "settings/profileStore.h"

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/startUpState.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* profilePath = "C:\\Quernstoke\\Profiles\\Ann.profile";
constexpr const char* firstProfilePath = "C:\\Quernstoke\\Profiles\\MyDocs.profile";
constexpr const char* globalPath = "C:\\Quernstoke\\Profiles\\global.settings";

const std::string newProfile =
    "Desc\t0\t\tS\r"
    "MatchingCriteria\t0\tC\tS\r"
    "ProcessZip\t0\tFalse\tB\r"
    "ScanHiddenFiles\t0\tFalse\tB\r"
    "ScanSystemFiles\t0\tFalse\tB\r"
    "SlowNetwork\t0\tFalse\tB\r"
    "MinimumSize\t0\t32\tN\r"
    "MinimumSizeMeasure\t0\tB\tS\r"
    "MaximumSize\t0\t2\tN\r"
    "MaximumSizeMeasure\t0\tGB\tS\r"
    "ContentMatchingPercent\t0\t100\tN\r"
    "RunMode\t0\t0\tN\r"
    "RestartPointMatchGroup\t0\t0\tN\r"
    "RestartPointPrimaryFile\t0\t0\tN\r"
    "RestartPointSecondaryFile\t0\t0\tN\r"
    "RestartPointNumDuplicates\t0\t0\tN\r"
    "RestartPoint\t0\t0\tN\r"
    "ElapsedTime\t0\t0\tN\r"
    "MatchNum\t0\t-1\tN\r"
    "NumDuplicates\t0\t-1\tN\r";

// Each setting with a value of its own, so that no two can be mixed up unseen.
const std::string fullProfile =
    "Desc\t0\tHolidays, all of them\tS\r"
    "MatchingCriteria\t0\tNCS\tS\r"
    "ProcessZip\t0\tTrue\tB\r"
    "ScanHiddenFiles\t0\tFalse\tB\r"
    "ScanSystemFiles\t0\tTrue\tB\r"
    "SlowNetwork\t0\tTrue\tB\r"
    "MinimumSize\t0\t2147483647\tN\r"
    "MinimumSizeMeasure\t0\tKB\tS\r"
    "MaximumSize\t0\t-5\tN\r"
    "MaximumSizeMeasure\t0\tMB\tS\r"
    "ContentMatchingPercent\t0\t75\tN\r"
    "RunMode\t0\t2\tN\r"
    "RestartPointMatchGroup\t0\t70001\tN\r"
    "RestartPointPrimaryFile\t0\t70002\tN\r"
    "RestartPointSecondaryFile\t0\t70003\tN\r"
    "RestartPointNumDuplicates\t0\t70004\tN\r"
    "RestartPoint\t0\t3\tN\r"
    "ElapsedTime\t0\t86400\tN\r"
    "MatchNum\t0\t32767\tN\r"
    "NumDuplicates\t0\t70005\tN\r"
    "Dir\t1\tC:\\Photos\tS\r"
    "IncludeExclude\t1\tI\tS\r"
    "IncludeExtensions\t1\t*.jpg;*.png\tS\r"
    "RecurseSubDirs\t1\tTrue\tB\r"
    "Dir\t128\tC:\\Photos\\Old\tS\r"
    "IncludeExclude\t128\tE\tS\r"
    "IncludeExtensions\t128\t5\tS\r"
    "RecurseSubDirs\t128\tFalse\tB\r";

void fillProfileSettings() {
  ProfileSettings = {"Holidays, all of them",
                     "NCS",
                     true,
                     false,
                     true,
                     true,
                     2147483647,
                     "KB",
                     -5,
                     "MB",
                     75,
                     2,
                     70001,
                     70002,
                     70003,
                     70004,
                     3,
                     86400,
                     32767,
                     70005};
  ProfileDirList[1] = {"C:\\Photos", "I", "*.jpg;*.png", true};
  ProfileDirList[128] = {"C:\\Photos\\Old", "E", "5", false};
}

const std::string firstGlobal =
    "NumberOfFileBuffers\t0\t500\tN\r"
    "FileBufferSize\t0\t8192\tN\r"
    "TransferMaxDiskSpace\t0\t50\tN\r"
    "TransferMaxDiskSpaceMeasure\t0\tMB\tS\r"
    "TransferFileLocally\t0\tTrue\tB\r"
    "TempPath\t0\tC:\\Quernstoke\\temp\tS\r"
    "HelpPanel\t0\tFalse\tB\r"
    "ResultsOutputFormat\t0\tHTML\tS\r"
    "ResultsOutputDirectory\t0\tC:\\Quernstoke\tS\r"
    "ResultsOutputFile\t0\tResults.html\tS\r"
    "ResultsNumberEachBlock\t0\tTrue\tB\r"
    "ResultsBlockMarkers\t0\tTrue\tB\r"
    "ResultsBlockIndicator\t1\t\tS\r"
    "ResultsBlockIndicator\t2\t#\tS\r"
    "ResultsLaunch\t0\tTrue\tB\r"
    "FileTypeDescription\t1\tAll files\tS\r"
    "FileTypesList\t1\t*.*\tS\r"
    "FileTypeDescription\t2\tMusic\tS\r"
    "FileTypesList\t2\t*.mp3;*.wma;*.ogg;*.aac\tS\r"
    "FileTypeDescription\t3\tVideo\tS\r"
    "FileTypesList\t3\t*.avi;*.wmv;*.mpg;*.mpeg;*.mov\tS\r"
    "FileTypeDescription\t4\tDocuments\tS\r"
    "FileTypesList\t4\t*.pdf;*.doc;*.dot;*.xls;*.xlt;*.ppt;*.pps\tS\r"
    "FileTypeDescription\t5\tImages\tS\r"
    "FileTypesList\t5\t*.gif;*.tif;*.tiff;*.pcx;*.jpg;*.jpeg;*.bmp\tS\r"
    "ProfileNameList\t1\tMyDocs\tS\r"
    "ProfileDateList\t1\t\tS\r";

const std::string fullGlobal =
    "NumberOfFileBuffers\t0\t70001\tN\r"
    "FileBufferSize\t0\t70002\tN\r"
    "TransferMaxDiskSpace\t0\t70003\tN\r"
    "TransferMaxDiskSpaceMeasure\t0\tGB\tS\r"
    "TransferFileLocally\t0\tFalse\tB\r"
    "TempPath\t0\tD:\\scratch\tS\r"
    "HelpPanel\t0\tTrue\tB\r"
    "ResultsOutputFormat\t0\tCSV\tS\r"
    "ResultsOutputDirectory\t0\tD:\\out\tS\r"
    "ResultsOutputFile\t0\tlist.csv\tS\r"
    "ResultsNumberEachBlock\t0\tFalse\tB\r"
    "ResultsBlockMarkers\t0\tTrue\tB\r"
    "ResultsBlockIndicator\t1\t>\tS\r"
    "ResultsBlockIndicator\t2\t<\tS\r"
    "ResultsLaunch\t0\tFalse\tB\r"
    "FileTypeDescription\t50\tSheets\tS\r"
    "FileTypesList\t50\t*.ods\tS\r"
    "ProfileNameList\t32\tAnn\tS\r"
    "ProfileDateList\t32\t2004-11-02\tS\r";

std::string procedureError(const std::string& name, const std::string& reason) {
  return "Procedure error in '" + name + "'.  Reason: " + reason + ".";
}

class ProfileStoreTest : public EngineTest {
 protected:
  ProfileStoreTest() { ProfileName = "Ann"; }

  bool loadProfile(const std::string& content) {
    disk.file(profilePath, content);
    return basLoadProfile("PROFILE");
  }
  bool loadGlobal(const std::string& content) {
    disk.file(globalPath, content);
    return basLoadProfile("GLOBAL");
  }
  // Saves and gives what stands in the file then.
  std::string savedProfile() {
    basSaveProfile(std::string_view("PROFILE"));
    return disk.content(profilePath);
  }
  std::string savedGlobal() {
    basSaveProfile(std::string_view("GLOBAL"));
    return disk.content(globalPath);
  }
  // Loads a profile whose record after the first can't be taken.
  void expectLoadEnds(const std::string& badRecord, const std::string& reason) {
    SCOPED_TRACE(badRecord);
    ProfileSettings.Desc.clear();
    ProfileSettings.MatchingCriteria.clear();
    dialogBoxes.messages.clear();
    const int openBefore = disk.openFiles();

    EXPECT_FALSE(loadProfile("Desc\t0\tbefore\tS\r" + badRecord + "MatchingCriteria\t0\tN\tS\r"));
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basLoadProfile", reason)));
    EXPECT_EQ("before", ProfileSettings.Desc);
    EXPECT_EQ("", ProfileSettings.MatchingCriteria);
    EXPECT_EQ(openBefore + 1, disk.openFiles());
  }
};

// Saving a profile.

TEST_F(ProfileStoreTest, NewProfileIsWrittenWithItsDefaults) {
  makeProfile("Ann");

  EXPECT_EQ(newProfile, disk.content(profilePath));
  EXPECT_EQ(0, disk.openFiles());
}

TEST_F(ProfileStoreTest, ProfileIsWrittenByteForByte) {
  fillProfileSettings();

  EXPECT_EQ(fullProfile, savedProfile());
}

TEST_F(ProfileStoreTest, ProfileThatIsReadIsWrittenTheSame) {
  EXPECT_TRUE(loadProfile(fullProfile));

  EXPECT_EQ("C:\\Photos\\Old", ProfileDirList[128].Dir);
  EXPECT_EQ(fullProfile, savedProfile());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(0, disk.openFiles());
}

// The restart record and the elapsed time of the profile used before go into the new one.
TEST_F(ProfileStoreTest, NewProfileInheritsTheRestartRecordInMemory) {
  fillProfileSettings();
  makeProfile("Ann");

  EXPECT_THAT(disk.content(profilePath), HasSubstr("RunMode\t0\t0\tN\r"
                                                   "RestartPointMatchGroup\t0\t70001\tN\r"
                                                   "RestartPointPrimaryFile\t0\t70002\tN\r"
                                                   "RestartPointSecondaryFile\t0\t70003\tN\r"
                                                   "RestartPointNumDuplicates\t0\t70004\tN\r"
                                                   "RestartPoint\t0\t3\tN\r"
                                                   "ElapsedTime\t0\t86400\tN\r"
                                                   "MatchNum\t0\t-1\tN\r"));
}

TEST_F(ProfileStoreTest, NewProfileTakesTheFirstFreeSlotOfTheListWithoutADate) {
  ProfileList.ProfileNameList[1] = "Bob";
  ProfileList.ProfileDateList[2] = "2004-11-02";
  std::string mode = "NEWPROFILE";
  basSaveProfile(mode);

  EXPECT_EQ("PROFILE", mode);
  EXPECT_EQ("Ann", ProfileList.ProfileNameList[2]);
  EXPECT_EQ("", ProfileList.ProfileDateList[2]);
  EXPECT_EQ("", ProfileList.ProfileNameList[3]);
  EXPECT_FALSE(disk.exists(globalPath));
}

TEST_F(ProfileStoreTest, NewProfileBeyondTheListHasAFileButNoSlot) {
  for (Int32 slot = 1; slot <= lastProfileSlot; ++slot)
    ProfileList.ProfileNameList[slot] = "taken";
  makeProfile("Ann");

  EXPECT_EQ(newProfile, disk.content(profilePath));
  for (Int32 slot = 0; slot <= lastProfileSlot; ++slot)
    EXPECT_EQ(slot == 0 ? "" : "taken", ProfileList.ProfileNameList[slot]);
}

// Saving skips an empty slot and goes on behind it; so the gap is there again after loading.
TEST_F(ProfileStoreTest, EmptyDirectorySlotStaysEmptyThroughSaveAndLoad) {
  for (int slot = 1; slot <= 10; ++slot)
    if (slot != 3) setDirectory(slot, "C:\\d" + std::to_string(slot), "I");
  const std::string saved = savedProfile();
  allocateProfileDirList();
  EXPECT_TRUE(loadProfile(saved));

  std::vector<std::string> directories;
  for (Int32 slot = 0; slot <= 11; ++slot)
    directories.push_back(ProfileDirList[slot].Dir);
  EXPECT_THAT(directories, ElementsAre("", "C:\\d1", "C:\\d2", "", "C:\\d4", "C:\\d5", "C:\\d6",
                                       "C:\\d7", "C:\\d8", "C:\\d9", "C:\\d10", ""));
}

TEST_F(ProfileStoreTest, DirectoryInSlotZeroIsNotSaved) {
  setDirectory(0, "C:\\zero", "I");

  EXPECT_THAT(savedProfile(), Not(HasSubstr("C:\\zero")));
}

TEST_F(ProfileStoreTest, ModesSayWhichFileIsWritten) {
  ProfileName.clear();
  basSaveProfile(std::string_view("PROFILE"));
  basSaveProfile(std::string_view("anything else"));
  EXPECT_THAT(disk.allFiles(), IsEmpty());

  ProfileName = "Ann";
  savedProfile();
  EXPECT_FALSE(disk.exists(globalPath));

  disk.erase(profilePath);
  savedGlobal();
  EXPECT_FALSE(disk.exists(profilePath));

  disk.erase(globalPath);
  basSaveProfile(std::string_view());
  EXPECT_TRUE(disk.exists(profilePath));
  EXPECT_TRUE(disk.exists(globalPath));
}

// "Both" does not ask whether there is a current profile.
TEST_F(ProfileStoreTest, SavingBothWithoutAProfileWritesANamelessOne) {
  ProfileName.clear();
  basSaveProfile(std::string_view());

  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Profiles\\.profile"));
}

TEST_F(ProfileStoreTest, NothingOfALongerOldFileRemains) {
  disk.file(profilePath, std::string(10000, '~'));

  EXPECT_EQ(std::string::npos, savedProfile().find('~'));
}

// There is no temporary file: the old settings are gone before the new ones are on disk.
TEST_F(ProfileStoreTest, FullDiskLeavesTheRecordsThatFittedAndTellsOfEachOther) {
  disk.file(profilePath, fullProfile);
  const std::string fitting =
      "Desc\t0\t\tS\r"
      "MatchingCriteria\t0\tC\tS\r";
  disk.freeBytes = static_cast<std::int64_t>(fitting.size());
  makeProfile("Ann");

  EXPECT_EQ(fitting, disk.content(profilePath));
  EXPECT_THAT(dialogBoxes.messages, SizeIs(18));
  EXPECT_THAT(dialogBoxes.messages, Each(procedureError("basConfigWrite", "Disk full(61)")));
  EXPECT_EQ(0, disk.openFiles());
}

TEST_F(ProfileStoreTest, RecordThatCouldNotBeWrittenIsMissingAlone) {
  disk.failOn(DiskAction::write, profilePath, FailureNumber::deviceError, 2);
  makeProfile("Ann");

  std::string without = newProfile;
  const std::string missing = "MatchingCriteria\t0\tC\tS\r";
  without.erase(without.find(missing), missing.size());
  EXPECT_EQ(without, disk.content(profilePath));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigWrite", "Device I/O error(57)")));
}

TEST_F(ProfileStoreTest, OldFileIsGoneWhenTheNewOneCanNotBeOpened) {
  disk.file(profilePath, fullProfile);
  disk.failOn(DiskAction::open, profilePath, FailureNumber::permissionDenied);
  makeProfile("Ann");

  EXPECT_FALSE(disk.exists(profilePath));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Permission denied(70)")));
}

TEST_F(ProfileStoreTest, ReadOnlyFileStaysAsItIs) {
  disk.file(profilePath, fullProfile);
  disk.setAttributes(profilePath, attributeReadOnly);
  makeProfile("Ann");

  EXPECT_EQ(fullProfile, disk.content(profilePath));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Path/File access error(75)")));
}

// Saving the settings of the installation.

TEST_F(ProfileStoreTest, GlobalSettingsThatAreReadAreWrittenTheSame) {
  EXPECT_TRUE(loadGlobal(fullGlobal));

  EXPECT_EQ("*.ods", FileTypeTable.FileTypesList[50]);
  EXPECT_EQ("Ann", ProfileList.ProfileNameList[32]);
  EXPECT_EQ(fullGlobal, savedGlobal());
  EXPECT_EQ(0, disk.openFiles());
}

TEST_F(ProfileStoreTest, OnlyFileTypesWithAListAndProfilesWithANameAreSaved) {
  FileTypeTable.FileTypeDescription[1] = "no list";
  FileTypeTable.FileTypesList[2] = "*.one";
  FileTypeTable.FileTypesList[0] = "*.zero";
  ProfileList.ProfileDateList[1] = "no name";
  ProfileList.ProfileNameList[2] = "Bob";
  ProfileList.ProfileNameList[0] = "zero";

  const std::string saved = savedGlobal();
  EXPECT_EQ(
      "FileTypeDescription\t2\t\tS\rFileTypesList\t2\t*.one\tS\r"
      "ProfileNameList\t2\tBob\tS\rProfileDateList\t2\t\tS\r",
      saved.substr(saved.find("FileTypeDescription")));
}

// The first run.

TEST_F(ProfileStoreTest, FirstRunWritesBothFilesByteForByte) {
  ProfileName.clear();
  EXPECT_TRUE(basLoadProfile("GLOBAL"));

  std::string profile = newProfile;
  profile.replace(0, profile.find('M'), "Desc\t0\tMy Documents\tS\r");
  profile +=
      "Dir\t1\tC:\\Users\\Ann\\Documents\tS\r"
      "IncludeExclude\t1\tI\tS\r"
      "IncludeExtensions\t1\t1\tS\r"
      "RecurseSubDirs\t1\tTrue\tB\r";
  EXPECT_EQ(profile, disk.content(firstProfilePath));
  EXPECT_EQ(firstGlobal, disk.content(globalPath));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileStoreTest, FirstRunEndsWithoutACurrentProfile) {
  EXPECT_TRUE(basLoadProfile("GLOBAL"));

  EXPECT_EQ("MyDocs", ProfileList.ProfileNameList[1]);
  EXPECT_EQ("", ProfileName);
  EXPECT_EQ("", ProfileSettings.Desc);
  EXPECT_EQ("", ProfileDirList[1].Dir);
}

TEST_F(ProfileStoreTest, FirstRunMakesTheTempDirectoryUnlessItIsThere) {
  basLoadProfile("GLOBAL");
  EXPECT_EQ(0, disk.count(DiskAction::makeDirectory, "C:\\Quernstoke\\temp"));

  disk.erase(globalPath);
  disk.erase("C:\\Quernstoke\\Temp");
  basLoadProfile("GLOBAL");
  EXPECT_THAT(disk.names("C:\\Quernstoke"), Contains("temp"));
}

// Otherwise the next start would not be a first run any more, and would have no file types.
TEST_F(ProfileStoreTest, FirstRunThatCanNotSaveLeavesNoEmptySettingsBehind) {
  disk.failOn(DiskAction::open, globalPath, FailureNumber::permissionDenied);

  EXPECT_FALSE(basLoadProfile("GLOBAL"));
  EXPECT_FALSE(disk.exists(globalPath));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Permission denied(70)"),
                          procedureError("basLoadProfile", "File not found(53)")));
}

// Defaults.

TEST_F(ProfileStoreTest, GlobalDefaultsLeaveTheHelpPanelAndFurtherFileTypes) {
  GlobalSettings.HelpPanel = true;
  FileTypeTable.FileTypeDescription[6] = "Mine";
  basDefaultProfile("GLOBAL", "");

  EXPECT_TRUE(GlobalSettings.HelpPanel);
  EXPECT_EQ("Mine", FileTypeTable.FileTypeDescription[6]);
  EXPECT_EQ("Images", FileTypeTable.FileTypeDescription[5]);
  EXPECT_EQ("Results.html", GlobalSettings.ResultsOutputFile);
}

TEST_F(ProfileStoreTest, ProfileDefaultsEmptyDirectoriesAndFilesButNotTheFileCount) {
  fillProfileSettings();
  buildCatalogue({{"a", "C:\\d"}});
  basDefaultProfile("PROFILE", "Bob");

  EXPECT_EQ(0, FileTable.FileName.upperBound());
  EXPECT_EQ(1, FileCount);
  EXPECT_EQ("", ProfileDirList[128].Dir);
  EXPECT_EQ("", ProfileDirList[1].Dir);
  EXPECT_EQ("I0", ProfileDirList[1].IncludeExclude + ProfileDirList[1].IncludeExtensions);
  EXPECT_TRUE(ProfileDirList[1].RecurseSubDirs);
}

// Only its first directory is set; what else there is stays.
TEST_F(ProfileStoreTest, DefaultsOfTheFirstProfileLeaveOtherDirectoriesAndFiles) {
  fillProfileSettings();
  buildCatalogue({{"a", "C:\\d"}});
  basDefaultProfile("PROFILE", "MyDocs");

  EXPECT_EQ(1000, FileTable.FileName.upperBound());
  EXPECT_EQ("C:\\Photos\\Old", ProfileDirList[128].Dir);
  EXPECT_EQ("C:\\Users\\Ann\\Documents", ProfileDirList[1].Dir);
  EXPECT_EQ("My Documents", ProfileSettings.Desc);
  EXPECT_EQ("C", ProfileSettings.MatchingCriteria);
}

TEST_F(ProfileStoreTest, DefaultsOfAnyOtherModeAreNone) {
  fillProfileSettings();
  basDefaultProfile("NEWPROFILE", "Bob");
  basDefaultProfile("", "Bob");

  EXPECT_EQ(fullProfile, savedProfile());
}

// Loading a profile.

TEST_F(ProfileStoreTest, MissingProfileChangesNothing) {
  fillProfileSettings();
  disk.file(globalPath, fullGlobal);

  EXPECT_FALSE(basLoadProfile("PROFILE"));
  EXPECT_FALSE(basLoadProfile(""));
  EXPECT_EQ("", GlobalSettings.TempPath);
  EXPECT_EQ(fullProfile, savedProfile());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileStoreTest, EmptyModeLoadsBoth) {
  disk.file(globalPath, fullGlobal);
  disk.file(profilePath, fullProfile);

  EXPECT_TRUE(basLoadProfile(""));
  EXPECT_EQ("NCS", ProfileSettings.MatchingCriteria);
  EXPECT_EQ("D:\\scratch", GlobalSettings.TempPath);
}

TEST_F(ProfileStoreTest, LoadingInAnyOtherModeDoesNothingAndSucceeds) {
  disk.calls.clear();

  EXPECT_TRUE(basLoadProfile("NEWPROFILE"));
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(ProfileStoreTest, LoadingEmptiesTheDirectoriesButKeepsSettingsThatTheFileLacks) {
  fillProfileSettings();
  EXPECT_TRUE(loadProfile("MinimumSize\t0\t9\tN\rDir\t2\tC:\\b\tS\r"));

  EXPECT_EQ("", ProfileDirList[1].Dir);
  EXPECT_EQ("C:\\b", ProfileDirList[2].Dir);
  EXPECT_EQ(9, ProfileSettings.MinimumSize);
  EXPECT_EQ("NCS", ProfileSettings.MatchingCriteria);
}

TEST_F(ProfileStoreTest, UnknownKeyIsToldAndTheOthersLoad) {
  EXPECT_TRUE(loadProfile("Colour\t0\tred\tS\rMinimumSize\t0\t9\tN\r"));

  EXPECT_EQ(9, ProfileSettings.MinimumSize);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Invalid config setting Colour data ignored"));
}

TEST_F(ProfileStoreTest, KeysCountByLetterCase) {
  EXPECT_TRUE(loadProfile("minimumsize\t0\t9\tN\r"));

  EXPECT_EQ(0, ProfileSettings.MinimumSize);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Invalid config setting minimumsize data ignored"));
}

TEST_F(ProfileStoreTest, EmptyKeyIsPassedOverWithoutAWord) {
  EXPECT_TRUE(loadProfile("\r\t0\tx\tS\rMinimumSize\t0\t9\tN\r"));

  EXPECT_EQ(9, ProfileSettings.MinimumSize);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileStoreTest, FileWithLineFeedsKeepsItsFirstSettingOnly) {
  EXPECT_TRUE(loadProfile("Desc\t0\tedited\tS\r\nMinimumSize\t0\t9\tN\r\n"));

  EXPECT_EQ("edited", ProfileSettings.Desc);
  EXPECT_EQ(0, ProfileSettings.MinimumSize);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Invalid config setting \nMinimumSize data ignored"));
}

TEST_F(ProfileStoreTest, FileCutAnywhereLoadsTheRecordsThatAreWhole) {
  const std::string end = "NumDuplicates\t0\t70005\tN\r";
  const std::size_t whole = fullProfile.find(end) + end.size();
  for (std::size_t length = 0; length < whole; ++length) {
    resetToStartUpState();
    ProfilesDir = "C:\\Quernstoke\\Profiles";
    ProfileName = "Ann";
    ASSERT_TRUE(loadProfile(fullProfile.substr(0, length)));
    const bool hasCriteria = length >= fullProfile.find("ProcessZip");
    ASSERT_EQ(hasCriteria ? "NCS" : "", ProfileSettings.MatchingCriteria) << length;
    ASSERT_EQ(0, ProfileSettings.NumDuplicates) << length;
  }
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(0, disk.openFiles());
}

TEST_F(ProfileStoreTest, LettersInANumberAreToldAndCountAsZero) {
  ProfileSettings.MinimumSize = 5;
  EXPECT_TRUE(loadProfile("MinimumSize\t0\t12x\tN\rMaximumSize\t0\t9\tN\r"));

  EXPECT_EQ(0, ProfileSettings.MinimumSize);
  EXPECT_EQ(9, ProfileSettings.MaximumSize);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Config setting MinimumSize is not numeric, zero used"));
}

// The test for a number comes before the key is looked at.
TEST_F(ProfileStoreTest, LettersInANumberOfNoSettingAreToldToo) {
  EXPECT_TRUE(loadProfile("Colour\t0\tred\tN\r\t0\tred\tN\r"));

  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Config setting Colour is not numeric, zero used",
                                                "Invalid config setting Colour data ignored",
                                                "Config setting  is not numeric, zero used"));
}

TEST_F(ProfileStoreTest, NumericSettingInATextRecordTakesTheNumberReadBefore) {
  EXPECT_TRUE(
      loadProfile("MinimumSize\t0\t9\tS\r"
                  "Colour\t0\t77\tN\r"
                  "MaximumSize\t0\t9\tS\r"
                  "RunMode\t0\t9\tB\r"));

  EXPECT_EQ(0, ProfileSettings.MinimumSize);
  EXPECT_EQ(77, ProfileSettings.MaximumSize);
  EXPECT_EQ(77, ProfileSettings.RunMode);
}

TEST_F(ProfileStoreTest, NumberFromAnEarlierFileIsForgotten) {
  loadProfile("MinimumSize\t0\t9\tN\r");
  loadProfile("MinimumSize\t0\t5\tS\r");

  EXPECT_EQ(0, ProfileSettings.MinimumSize);
}

TEST_F(ProfileStoreTest, ElapsedTimeBecomesAWholeNumber) {
  loadProfile("ElapsedTime\t0\t13.5\tN\r");
  EXPECT_EQ(14, ProfileSettings.ElapsedTime);
  loadProfile("ElapsedTime\t0\t12.5\tN\r");
  EXPECT_EQ(12, ProfileSettings.ElapsedTime);
}

TEST_F(ProfileStoreTest, NumberTooLargeForItsFieldEndsTheLoadWithTheFileOpen) {
  expectLoadEnds("RunMode\t0\t32768\tN\r", "Overflow(6)");
  expectLoadEnds("MatchNum\t0\t-32769\tN\r", "Overflow(6)");
  expectLoadEnds("ContentMatchingPercent\t0\t70000\tN\r", "Overflow(6)");
  expectLoadEnds("RestartPoint\t0\t70000\tN\r", "Overflow(6)");
  expectLoadEnds("MinimumSize\t0\t2147483648\tN\r", "Overflow(6)");
}

TEST_F(ProfileStoreTest, BadBooleanEndsTheLoad) {
  expectLoadEnds("ProcessZip\t0\tperhaps\tB\r", "Type mismatch(13)");
  expectLoadEnds("ProcessZip\t0\t\tB\r", "Type mismatch(13)");
  expectLoadEnds("RecurseSubDirs\t1\tyes\tB\r", "Type mismatch(13)");
}

TEST_F(ProfileStoreTest, BooleansMayBeWordsInAnyCaseAndNumbers) {
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

TEST_F(ProfileStoreTest, DirectoryIndexOutsideTheSlotsEndsTheLoad) {
  expectLoadEnds("Dir\t129\tC:\\a\tS\r", "Subscript out of range(9)");
  expectLoadEnds("IncludeExclude\t129\tI\tS\r", "Subscript out of range(9)");
  expectLoadEnds("IncludeExtensions\t-1\t0\tS\r", "Subscript out of range(9)");
  expectLoadEnds("RecurseSubDirs\t-1\tTrue\tB\r", "Subscript out of range(9)");
}

TEST_F(ProfileStoreTest, IndexThatIsNoNumberIsToldAndReadsAsZero) {
  EXPECT_TRUE(loadProfile("Dir\tone\tC:\\a\tS\rDir\t2\tC:\\b\tS\r"));

  EXPECT_EQ("C:\\a", ProfileDirList[0].Dir);
  EXPECT_EQ("C:\\b", ProfileDirList[2].Dir);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Type mismatch(13)")));
}

TEST_F(ProfileStoreTest, FileThatMayOnlyBeReadLoads) {
  disk.file(profilePath, fullProfile);
  disk.setAttributes(profilePath, attributeReadOnly);

  EXPECT_TRUE(basLoadProfile("PROFILE"));
  EXPECT_EQ("NCS", ProfileSettings.MatchingCriteria);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileStoreTest, FileThatMayNotBeReadIsToldAfterTheDirectoriesWereEmptied) {
  fillProfileSettings();
  disk.failOn(DiskAction::open, profilePath, FailureNumber::permissionDenied);

  EXPECT_FALSE(loadProfile(fullProfile));
  EXPECT_EQ("", ProfileDirList[1].Dir);
  EXPECT_EQ("NCS", ProfileSettings.MatchingCriteria);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadProfile", "Permission denied(70)")));
}

TEST_F(ProfileStoreTest, LostDiskEndsTheLoad) {
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::read) fail(FailureNumber::deviceError);
  };

  EXPECT_FALSE(loadProfile("Desc\t0\ta\tS\r"));

  EXPECT_EQ(procedureError("basLoadProfile", "Device I/O error(57)"), dialogBoxes.messages.back());
}

TEST_F(ProfileStoreTest, FailedReadCostsOneRecord) {
  disk.failOn(DiskAction::read, profilePath, FailureNumber::deviceError, 3);

  EXPECT_TRUE(loadProfile("Desc\t0\ta\tS\rMinimumSize\t0\t9\tN\r"));
  EXPECT_EQ("", ProfileSettings.Desc);
  EXPECT_EQ(9, ProfileSettings.MinimumSize);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Device I/O error(57)"),
                          "Invalid config setting sc data ignored"));
}

// Loading the settings of the installation.

// One letter tells it from the default of a first run.
TEST_F(ProfileStoreTest, SettingsThatTheGlobalFileLacksArePreset) {
  EXPECT_TRUE(loadGlobal(""));

  EXPECT_EQ("results.html", GlobalSettings.ResultsOutputFile);
  EXPECT_EQ("HTML", GlobalSettings.ResultsOutputFormat);
  EXPECT_EQ("C:\\Quernstoke", GlobalSettings.ResultsOutputDirectory);
  EXPECT_THAT(GlobalSettings.ResultsBlockIndicator, ElementsAre("", "", "#"));
  EXPECT_TRUE(GlobalSettings.ResultsLaunch);
  EXPECT_TRUE(GlobalSettings.ResultsNumberEachBlock);
  EXPECT_TRUE(GlobalSettings.ResultsBlockMarkers);
}

TEST_F(ProfileStoreTest, OtherSettingsThatTheGlobalFileLacksStay) {
  GlobalSettings.FileBufferSize = 4096;
  GlobalSettings.TempPath = "D:\\scratch";
  FileTypeTable.FileTypesList[7] = "*.mine";
  EXPECT_TRUE(loadGlobal("NumberOfFileBuffers\t0\t9\tN\r"));

  EXPECT_EQ(9, GlobalSettings.NumberOfFileBuffers);
  EXPECT_EQ(4096, GlobalSettings.FileBufferSize);
  EXPECT_EQ("D:\\scratch", GlobalSettings.TempPath);
  EXPECT_EQ("*.mine", FileTypeTable.FileTypesList[7]);
}

TEST_F(ProfileStoreTest, UnknownKeyInTheGlobalFilePassesWithoutAWord) {
  EXPECT_TRUE(loadGlobal("Colour\t0\tred\tS\rFileBufferSize\t0\t9\tN\r"));

  EXPECT_EQ(9, GlobalSettings.FileBufferSize);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileStoreTest, LettersInANumberOfTheGlobalFileAreTold) {
  EXPECT_TRUE(loadGlobal("FileBufferSize\t0\tbig\tN\r"));

  EXPECT_EQ(0, GlobalSettings.FileBufferSize);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Config setting FileBufferSize is not numeric, zero used"));
}

// Here the number read before plays no part, unlike in a profile.
TEST_F(ProfileStoreTest, NumericGlobalSettingInATextRecordIsZero) {
  GlobalSettings.TransferMaxDiskSpace = 50;
  EXPECT_TRUE(loadGlobal("FileBufferSize\t0\t77\tN\rTransferMaxDiskSpace\t0\t9\tS\r"));

  EXPECT_EQ(0, GlobalSettings.TransferMaxDiskSpace);
}

TEST_F(ProfileStoreTest, GlobalIndexOutsideItsTableEndsTheLoad) {
  for (const char* record :
       {"ResultsBlockIndicator\t3\tx\tS\r", "ResultsBlockIndicator\t-1\tx\tS\r",
        "FileTypeDescription\t51\tx\tS\r", "FileTypesList\t-1\tx\tS\r",
        "ProfileNameList\t33\tx\tS\r", "ProfileDateList\t33\tx\tS\r"}) {
    SCOPED_TRACE(record);
    dialogBoxes.messages.clear();
    GlobalSettings.TempPath.clear();

    EXPECT_FALSE(loadGlobal(record + std::string("TempPath\t0\tbehind\tS\r")));
    EXPECT_EQ("", GlobalSettings.TempPath);
    EXPECT_THAT(dialogBoxes.messages,
                ElementsAre(procedureError("basLoadProfile", "Subscript out of range(9)")));
  }
}

TEST_F(ProfileStoreTest, BadValueInTheGlobalFileEndsTheLoadWithTheFileOpen) {
  EXPECT_FALSE(loadGlobal("HelpPanel\t0\tperhaps\tB\r"));
  EXPECT_FALSE(loadGlobal("FileBufferSize\t0\t3000000000\tN\r"));

  EXPECT_EQ(2, disk.openFiles());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadProfile", "Type mismatch(13)"),
                          procedureError("basLoadProfile", "Overflow(6)")));
}

}  // namespace
}  // namespace quernstoke
