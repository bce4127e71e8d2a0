#include "settings/settings.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using SettingsTest = EngineTest;

// No procedure allocates it before the settings of the installation are read into it.
TEST_F(SettingsTest, ProfileListHasItsSlotsFromTheStart) {
  EXPECT_EQ(ProfileList.ProfileNameList.upperBound(), 32);
  EXPECT_EQ(ProfileList.ProfileDateList.upperBound(), 32);
}

TEST_F(SettingsTest, AllocatingMakesTheSlots) {
  ProfileDirList.redim(0, false);
  FileTypeTable.FileTypeDescription.redim(0, false);
  FileTypeTable.FileTypesList.redim(0, false);
  allocateProfileDirList();
  allocateFileTypeTable();

  EXPECT_EQ(ProfileDirList.upperBound(), 128);
  EXPECT_EQ(FileTypeTable.FileTypeDescription.upperBound(), 50);
  EXPECT_EQ(FileTypeTable.FileTypesList.upperBound(), 50);
}

TEST_F(SettingsTest, AllocatingEmptiesEverySlot) {
  ProfileDirList[128] = {"C:\\a", "I", "1", true};
  FileTypeTable.FileTypeDescription[50] = "Music";
  FileTypeTable.FileTypesList[50] = "*.mp3";
  allocateProfileDirList();
  allocateFileTypeTable();

  const DirSpec& slot = ProfileDirList[128];
  EXPECT_EQ(slot.Dir + slot.IncludeExclude + slot.IncludeExtensions, "");
  EXPECT_FALSE(slot.RecurseSubDirs);
  EXPECT_EQ(FileTypeTable.FileTypeDescription[50] + FileTypeTable.FileTypesList[50], "");
}

TEST_F(SettingsTest, FirstGapFromSlotOneUpwardIsFree) {
  allocateProfileDirList();
  EXPECT_EQ(firstFreeDirSlot(), 1);
  ProfileDirList[1].Dir = ProfileDirList[3].Dir = "C:\\a";
  EXPECT_EQ(firstFreeDirSlot(), 2);
  EXPECT_EQ(ProfileDirList.upperBound(), 128);
}

TEST_F(SettingsTest, ListWithoutAFreeSlotGrows) {
  ProfileDirList.redim(1, false);
  ProfileDirList[1].Dir = "C:\\a";
  EXPECT_EQ(firstFreeDirSlot(), 2);
  EXPECT_EQ(ProfileDirList.upperBound(), 2 + 65);
  EXPECT_EQ(ProfileDirList[1].Dir, "C:\\a");
}

}  // namespace
}  // namespace quernstoke
