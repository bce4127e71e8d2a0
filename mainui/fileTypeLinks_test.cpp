#include "mainui/fileTypeLinks.h"

#include "core/modMain.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

using testing::IsEmpty;

class FileTypeLinksTest : public EngineTest {
 protected:
  FileTypeLinksTest() {
    for (int slot = 1; slot <= lastProfileSlot; ++slot)
      profile(slot, "");
  }
  // Puts a profile with these records into a slot.
  void profile(int slot, const std::string& records) {
    ProfileList.ProfileNameList[slot] = "profile" + std::to_string(slot);
    disk.file(path(slot), records);
  }
  static std::string path(int slot) {
    return ProfilesDir + "\\profile" + std::to_string(slot) + ".profile";
  }
  static std::string kind(const std::string& value) {
    return "IncludeExclude\t1\t" + value + "\tS\r";
  }
};

TEST_F(FileTypeLinksTest, HalvesOfAPairAreTakenForTheirRows) {
  profile(3, kind("I") + kind("1") + kind("2"));
  EXPECT_EQ(profileLinkedTo(1), "profile3");
  EXPECT_EQ(profileLinkedTo(2), "profile3");
  EXPECT_EQ(profileLinkedTo(3), std::nullopt);
}

// The row that a directory does use counts for nothing.
TEST_F(FileTypeLinksTest, FileTypesOfADirectoryAreNoLink) {
  profile(1, kind("I") + "IncludeExtensions\t1\t5\tS\r");
  EXPECT_EQ(profileLinkedTo(5), std::nullopt);
}

TEST_F(FileTypeLinksTest, TheWholePartCountsAndOtherTextsDoNot) {
  profile(1, kind("7.9") + kind("E") + kind("") + kind("99999999999"));
  EXPECT_EQ(profileLinkedTo(7), "profile1");
  EXPECT_EQ(profileLinkedTo(8), std::nullopt);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(FileTypeLinksTest, TheFirstProfileIsNamedAndNoneBehindItIsRead) {
  profile(2, kind("1"));
  profile(4, kind("1"));
  EXPECT_EQ(profileLinkedTo(1), "profile2");
  EXPECT_EQ(disk.count(DiskAction::open, path(3)), 0);
}

TEST_F(FileTypeLinksTest, AllSlotsButTheFirstAreLookedInto) {
  ProfileList.ProfileNameList[0] = "zero";
  profile(lastProfileSlot, kind("1"));
  EXPECT_EQ(profileLinkedTo(1), "profile32");
}

TEST_F(FileTypeLinksTest, FilesAreOpenedForReadingAndClosed) {
  profile(5, kind("1"));
  profileLinkedTo(1);
  EXPECT_EQ(disk.openFiles(), 0);
  for (const DiskCall& call : disk.calls)
    EXPECT_TRUE(call.action != DiskAction::open || call.mode == OpenMode::input) << call.path;
}

// So nothing is ever found unless all slots hold a profile.
TEST_F(FileTypeLinksTest, ASlotWithoutAProfileFails) {
  ProfileList.ProfileNameList[9].clear();
  EXPECT_FAILURE(fileNotFound, profileLinkedTo(6));
  EXPECT_EQ(disk.count(DiskAction::open, ProfilesDir + "\\.profile"), 1);
}

}  // namespace
}  // namespace quernstoke
