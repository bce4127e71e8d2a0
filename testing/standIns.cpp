#include "testing/standIns.h"

#include "core/modMain.h"
#include "testing/startUpState.h"

namespace quernstoke {

StandIns::StandIns() {
  usePlatform(platform);
  newProcess();
  ProfilesDir = AppPath + "\\Profiles";
  TempDir = AppPath + "\\Temp";
  disk.directory(ProfilesDir);
  disk.directory(TempDir);
  clock.time = dateTime({2004, 11, 2, 16, 41, 8});
}

StandIns::~StandIns() {
  resetToStartUpState();
}

void StandIns::newProcess() {
  resetToStartUpState();
  AppPath = "C:\\Quernstoke";
  ExeName = "quernstoke";
}

}  // namespace quernstoke
