#include "settings/profileStore.h"

#include "settings/profileStoreTest.h"

namespace quernstoke {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

TEST_F(ProfileStoreTest, NewProfileIsWrittenWithItsDefaults) {
  makeProfile("Ann");

  EXPECT_EQ(disk.content(profilePath), newProfile);
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(ProfileStoreTest, ProfileIsWrittenByteForByte) {
  fillProfileSettings();

  EXPECT_EQ(savedProfile(), fullProfile);
}

TEST_F(ProfileStoreTest, ProfileThatIsReadIsWrittenTheSame) {
  EXPECT_TRUE(loadProfile(fullProfile));

  EXPECT_EQ(ProfileDirList[128].Dir, "C:\\Photos\\Old");
  EXPECT_EQ(savedProfile(), fullProfile);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.openFiles(), 0);
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

  EXPECT_EQ(mode, "PROFILE");
  EXPECT_EQ(ProfileList.ProfileNameList[2], "Ann");
  EXPECT_EQ(ProfileList.ProfileDateList[2], "");
  EXPECT_EQ(ProfileList.ProfileNameList[3], "");
  EXPECT_FALSE(disk.exists(globalPath));
}

TEST_F(ProfileStoreTest, NewProfileBeyondTheListHasAFileButNoSlot) {
  for (Int32 slot = 1; slot <= lastProfileSlot; ++slot)
    ProfileList.ProfileNameList[slot] = "taken";
  makeProfile("Ann");

  EXPECT_EQ(disk.content(profilePath), newProfile);
  for (Int32 slot = 0; slot <= lastProfileSlot; ++slot)
    EXPECT_EQ(ProfileList.ProfileNameList[slot], slot == 0 ? "" : "taken");
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
  basSaveProfile("PROFILE");
  basSaveProfile("anything else");
  EXPECT_THAT(disk.allFiles(), IsEmpty());

  ProfileName = "Ann";
  savedProfile();
  EXPECT_FALSE(disk.exists(globalPath));

  disk.erase(profilePath);
  basSaveProfile("GLOBAL");
  EXPECT_FALSE(disk.exists(profilePath));

  disk.erase(globalPath);
  basSaveProfile("");
  EXPECT_TRUE(disk.exists(profilePath));
  EXPECT_TRUE(disk.exists(globalPath));
}

// "Both" does not ask whether there is a current profile.
TEST_F(ProfileStoreTest, SavingBothWithoutAProfileWritesANamelessOne) {
  ProfileName.clear();
  basSaveProfile("");

  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Profiles\\.profile"));
}

TEST_F(ProfileStoreTest, NothingOfALongerOldFileRemains) {
  disk.file(profilePath, std::string(10000, '~'));

  EXPECT_EQ(savedProfile().find('~'), std::string::npos);
}

// There is no temporary file: the old settings are gone before the new ones are on disk.
TEST_F(ProfileStoreTest, FullDiskLeavesTheRecordsThatFittedAndTellsOfEachOther) {
  disk.file(profilePath, fullProfile);
  const std::string fitting =
      "Desc\t0\t\tS\r"
      "MatchingCriteria\t0\tC\tS\r";
  disk.freeBytes = static_cast<std::int64_t>(fitting.size());
  makeProfile("Ann");

  EXPECT_EQ(disk.content(profilePath), fitting);
  EXPECT_THAT(dialogBoxes.messages, SizeIs(18));
  EXPECT_THAT(dialogBoxes.messages, Each(procedureError("basConfigWrite", "Disk full(61)")));
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(ProfileStoreTest, RecordThatCouldNotBeWrittenIsMissingAlone) {
  disk.failOn(DiskAction::write, profilePath, FailureNumber::deviceError, 2);
  makeProfile("Ann");

  std::string without = newProfile;
  const std::string missing = "MatchingCriteria\t0\tC\tS\r";
  without.erase(without.find(missing), missing.size());
  EXPECT_EQ(disk.content(profilePath), without);
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

  EXPECT_EQ(disk.content(profilePath), fullProfile);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Path/File access error(75)")));
}

}  // namespace
}  // namespace quernstoke
