#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/modMain.h"
#include "core/scanState.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {

inline constexpr const char* initializing = "Initializing...";
inline constexpr const char* building = "Building file list...  ";
inline constexpr const char* searching = "Searching for duplicates...";

// The program started, with the profile "Music" over an empty C:\Data and a new scan chosen.
class ScanDriverTest : public EngineTest {
 protected:
  ScanDriverTest() {
    start();
    makeProfile("Music");
    ProfileSettings.MinimumSize = 1;
    disk.directory("C:\\Data");
    setDirectory(1, "C:\\Data", "I");
    StartMode = startMode::newScan;
    windows.clear();
    disk.calls.clear();
  }

  // Runs `action` at the first yield that comes while the status line says `text`.
  void at(const std::string& text, std::function<void()> action) {
    eventLoop.onYield = [this, text, action, done = false]() mutable {
      if (done || statusWindow.statusTexts.back() != text) return;
      done = true;
      action();
    };
  }

  void twoEqualFiles() {
    disk.file("C:\\Data\\a.txt", "same");
    disk.file("C:\\Data\\b.txt", "same");
  }

  // The extensions of the profile's files in the order in which they were opened.
  std::vector<std::string> openedProfileFiles() const {
    const std::string start = ProfilesDir + "\\" + ProfileName;
    std::vector<std::string> extensions;
    for (const std::string& path : disk.paths(DiskAction::open))
      if (path.starts_with(start)) extensions.push_back(path.substr(start.size()));
    return extensions;
  }

  // The profile as it was saved.
  static ProfileSettingsRecord saved() {
    ProfileSettings = {};
    basLoadProfile("PROFILE");
    return ProfileSettings;
  }

  const std::string filesSnapshot = "C:\\Quernstoke\\Profiles\\Music.files";
  const std::string dirSnapshot = "C:\\Quernstoke\\Profiles\\Music.dir";
};

}  // namespace quernstoke
