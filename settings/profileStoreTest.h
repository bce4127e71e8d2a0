#pragma once

#include <string>

#include "core/modMain.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {

inline constexpr const char* profilePath = "C:\\Quernstoke\\Profiles\\Ann.profile";
inline constexpr const char* globalPath = "C:\\Quernstoke\\Profiles\\global.settings";

// The file of a new profile.
inline const std::string newProfile =
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
inline const std::string fullProfile =
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

// The settings that fullProfile holds.
inline void fillProfileSettings() {
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

// Saving and loading with Ann as the current profile.
class ProfileStoreTest : public EngineTest {
 protected:
  ProfileStoreTest() { ProfileName = "Ann"; }

  bool loadProfile(const std::string& content) {
    disk.file(profilePath, content);
    return basLoadProfile("PROFILE");
  }
  // Saves and gives what stands in the file then.
  std::string savedProfile() {
    basSaveProfile("PROFILE");
    return disk.content(profilePath);
  }
};

}  // namespace quernstoke
