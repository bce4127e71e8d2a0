#include "testing/standIns.h"

#include "core/modMain.h"
#include "core/startUpState.h"
#include "platform/platform.h"

namespace quernstoke {

StandIns::StandIns() {
  usePlatform({&disk, &archiveLibrary, &dialogBoxes, &desk, &eventLoop, &clock, &locale,
               &mainWindow, &statusWindow, &resultsWindow});
  resetToStartUpState();
  AppPath = "C:\\Quernstoke";
  ExeName = "quernstoke";
  ProfilesDir = AppPath + "\\Profiles";
  TempDir = AppPath + "\\Temp";
  disk.directory(ProfilesDir);
  disk.directory(TempDir);
  clock.time = dateTime({2004, 11, 2, 16, 41, 8});
}

StandIns::~StandIns() {
  resetToStartUpState();
}

}  // namespace quernstoke
