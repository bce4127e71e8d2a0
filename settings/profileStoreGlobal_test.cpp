#include "catalogue/fileTable.h"
#include "settings/profileStoreTest.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* firstProfilePath = "C:\\Quernstoke\\Profiles\\MyDocs.profile";

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

class GlobalStoreTest : public ProfileStoreTest {
 protected:
  bool loadGlobal(const std::string& content) {
    disk.file(globalPath, content);
    return basLoadProfile("GLOBAL");
  }
  // Saves and gives what stands in the file then.
  std::string savedGlobal() {
    basSaveProfile("GLOBAL");
    return disk.content(globalPath);
  }
};

// Saving.

TEST_F(GlobalStoreTest, GlobalSettingsThatAreReadAreWrittenTheSame) {
  EXPECT_TRUE(loadGlobal(fullGlobal));

  EXPECT_EQ(FileTypeTable.FileTypesList[50], "*.ods");
  EXPECT_EQ(ProfileList.ProfileNameList[32], "Ann");
  EXPECT_EQ(savedGlobal(), fullGlobal);
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(GlobalStoreTest, OnlyFileTypesWithAListAndProfilesWithANameAreSaved) {
  FileTypeTable.FileTypeDescription[1] = "no list";
  FileTypeTable.FileTypesList[2] = "*.one";
  FileTypeTable.FileTypesList[0] = "*.zero";
  ProfileList.ProfileDateList[1] = "no name";
  ProfileList.ProfileNameList[2] = "Bob";
  ProfileList.ProfileNameList[0] = "zero";

  const std::string saved = savedGlobal();
  EXPECT_EQ(saved.substr(saved.find("FileTypeDescription")),
            "FileTypeDescription\t2\t\tS\rFileTypesList\t2\t*.one\tS\r"
            "ProfileNameList\t2\tBob\tS\rProfileDateList\t2\t\tS\r");
}

// The first run.

TEST_F(GlobalStoreTest, FirstRunWritesBothFilesByteForByte) {
  ProfileName.clear();
  EXPECT_TRUE(basLoadProfile("GLOBAL"));

  std::string profile = newProfile;
  profile.replace(0, profile.find('M'), "Desc\t0\tMy Documents\tS\r");
  profile +=
      "Dir\t1\tC:\\Users\\Ann\\Documents\tS\r"
      "IncludeExclude\t1\tI\tS\r"
      "IncludeExtensions\t1\t1\tS\r"
      "RecurseSubDirs\t1\tTrue\tB\r";
  EXPECT_EQ(disk.content(firstProfilePath), profile);
  EXPECT_EQ(disk.content(globalPath), firstGlobal);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(GlobalStoreTest, FirstRunEndsWithoutACurrentProfile) {
  EXPECT_TRUE(basLoadProfile("GLOBAL"));

  EXPECT_EQ(ProfileList.ProfileNameList[1], "MyDocs");
  EXPECT_EQ(ProfileName, "");
  EXPECT_EQ(ProfileSettings.Desc, "");
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(GlobalStoreTest, FirstRunMakesTheTempDirectoryUnlessItIsThere) {
  basLoadProfile("GLOBAL");
  EXPECT_EQ(disk.count(DiskAction::makeDirectory, "C:\\Quernstoke\\temp"), 0);

  disk.erase(globalPath);
  disk.erase("C:\\Quernstoke\\Temp");
  basLoadProfile("GLOBAL");
  EXPECT_THAT(disk.names("C:\\Quernstoke"), Contains("temp"));
}

// Otherwise the next start would not be a first run any more, and would have no file types.
TEST_F(GlobalStoreTest, FirstRunThatCanNotSaveLeavesNoEmptySettingsBehind) {
  disk.failOn(DiskAction::open, globalPath, FailureNumber::permissionDenied);

  EXPECT_FALSE(basLoadProfile("GLOBAL"));
  EXPECT_FALSE(disk.exists(globalPath));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Permission denied(70)"),
                          procedureError("basLoadProfile", "File not found(53)")));
}

// Defaults.

TEST_F(GlobalStoreTest, GlobalDefaultsLeaveTheHelpPanelAndFurtherFileTypes) {
  GlobalSettings.HelpPanel = true;
  FileTypeTable.FileTypeDescription[6] = "Mine";
  basDefaultProfile("GLOBAL", "");

  EXPECT_TRUE(GlobalSettings.HelpPanel);
  EXPECT_EQ(FileTypeTable.FileTypeDescription[6], "Mine");
  EXPECT_EQ(FileTypeTable.FileTypeDescription[5], "Images");
  EXPECT_EQ(GlobalSettings.ResultsOutputFile, "Results.html");
}

TEST_F(GlobalStoreTest, ProfileDefaultsEmptyDirectoriesAndFilesButNotTheFileCount) {
  fillProfileSettings();
  buildCatalogue({{"a", "C:\\d"}});
  basDefaultProfile("PROFILE", "Bob");

  EXPECT_EQ(FileTable.FileName.upperBound(), 0);
  EXPECT_EQ(FileCount, 1);
  EXPECT_EQ(ProfileDirList[128].Dir, "");
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_EQ(ProfileDirList[1].IncludeExclude + ProfileDirList[1].IncludeExtensions, "I0");
  EXPECT_TRUE(ProfileDirList[1].RecurseSubDirs);
}

// Only its first directory is set; what else there is stays.
TEST_F(GlobalStoreTest, DefaultsOfTheFirstProfileLeaveOtherDirectoriesAndFiles) {
  fillProfileSettings();
  buildCatalogue({{"a", "C:\\d"}});
  basDefaultProfile("PROFILE", "MyDocs");

  EXPECT_EQ(FileTable.FileName.upperBound(), 1000);
  EXPECT_EQ(ProfileDirList[128].Dir, "C:\\Photos\\Old");
  EXPECT_EQ(ProfileDirList[1].Dir, "C:\\Users\\Ann\\Documents");
  EXPECT_EQ(ProfileSettings.Desc, "My Documents");
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "C");
}

TEST_F(GlobalStoreTest, DefaultsOfAnyOtherModeAreNone) {
  fillProfileSettings();
  basDefaultProfile("NEWPROFILE", "Bob");
  basDefaultProfile("", "Bob");

  EXPECT_EQ(savedProfile(), fullProfile);
}

// Loading.

// One letter tells it from the default of a first run.
TEST_F(GlobalStoreTest, SettingsThatTheGlobalFileLacksArePreset) {
  EXPECT_TRUE(loadGlobal(""));

  EXPECT_EQ(GlobalSettings.ResultsOutputFile, "results.html");
  EXPECT_EQ(GlobalSettings.ResultsOutputFormat, "HTML");
  EXPECT_EQ(GlobalSettings.ResultsOutputDirectory, "C:\\Quernstoke");
  EXPECT_THAT(GlobalSettings.ResultsBlockIndicator, ElementsAre("", "", "#"));
  EXPECT_TRUE(GlobalSettings.ResultsLaunch);
  EXPECT_TRUE(GlobalSettings.ResultsNumberEachBlock);
  EXPECT_TRUE(GlobalSettings.ResultsBlockMarkers);
}

TEST_F(GlobalStoreTest, OtherSettingsThatTheGlobalFileLacksStay) {
  GlobalSettings.FileBufferSize = 4096;
  GlobalSettings.TempPath = "D:\\scratch";
  FileTypeTable.FileTypesList[7] = "*.mine";
  EXPECT_TRUE(loadGlobal("NumberOfFileBuffers\t0\t9\tN\r"));

  EXPECT_EQ(GlobalSettings.NumberOfFileBuffers, 9);
  EXPECT_EQ(GlobalSettings.FileBufferSize, 4096);
  EXPECT_EQ(GlobalSettings.TempPath, "D:\\scratch");
  EXPECT_EQ(FileTypeTable.FileTypesList[7], "*.mine");
}

TEST_F(GlobalStoreTest, UnknownKeyInTheGlobalFilePassesWithoutAWord) {
  EXPECT_TRUE(loadGlobal("Colour\t0\tred\tS\rFileBufferSize\t0\t9\tN\r"));

  EXPECT_EQ(GlobalSettings.FileBufferSize, 9);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(GlobalStoreTest, LettersInANumberOfTheGlobalFileAreTold) {
  EXPECT_TRUE(loadGlobal("FileBufferSize\t0\tbig\tN\r"));

  EXPECT_EQ(GlobalSettings.FileBufferSize, 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Config setting FileBufferSize is not numeric, zero used"));
}

// Here the number read before plays no part, unlike in a profile.
TEST_F(GlobalStoreTest, NumericGlobalSettingInATextRecordIsZero) {
  GlobalSettings.TransferMaxDiskSpace = 50;
  EXPECT_TRUE(loadGlobal("FileBufferSize\t0\t77\tN\rTransferMaxDiskSpace\t0\t9\tS\r"));

  EXPECT_EQ(GlobalSettings.TransferMaxDiskSpace, 0);
}

TEST_F(GlobalStoreTest, GlobalIndexOutsideItsTableEndsTheLoad) {
  for (const char* record :
       {"ResultsBlockIndicator\t3\tx\tS\r", "ResultsBlockIndicator\t-1\tx\tS\r",
        "FileTypeDescription\t51\tx\tS\r", "FileTypesList\t-1\tx\tS\r",
        "ProfileNameList\t33\tx\tS\r", "ProfileDateList\t33\tx\tS\r"}) {
    SCOPED_TRACE(record);
    dialogBoxes.messages.clear();
    GlobalSettings.TempPath.clear();

    EXPECT_FALSE(loadGlobal(record + std::string("TempPath\t0\tbehind\tS\r")));
    EXPECT_EQ(GlobalSettings.TempPath, "");
    EXPECT_THAT(dialogBoxes.messages,
                ElementsAre(procedureError("basLoadProfile", "Subscript out of range(9)")));
  }
}

TEST_F(GlobalStoreTest, BadValueInTheGlobalFileEndsTheLoadWithTheFileOpen) {
  EXPECT_FALSE(loadGlobal("HelpPanel\t0\tperhaps\tB\r"));
  EXPECT_FALSE(loadGlobal("FileBufferSize\t0\t3000000000\tN\r"));

  EXPECT_EQ(disk.openFiles(), 2);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadProfile", "Type mismatch(13)"),
                          procedureError("basLoadProfile", "Overflow(6)")));
}

}  // namespace
}  // namespace quernstoke
