#include "core/modMain.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "core/log.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/version.h"
#include "detect/modLinkedList.h"
#include "detect/refinement.h"
#include "detect/tempStore.h"
#include "mainui/modalForms.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

std::string AppPath;
std::string ExeName;
std::string ProfilesDir;
std::string TempDir;
std::string ProfileName;
std::string ProcessCommandLine;
std::string CommandLineProfile;

namespace {

void ensureDirectory(const std::string& path) {
  if (!basDirExists(path)) files().makeDirectory(path);
}

void allocateTables() {
  basRedimFilesArrays(0, false);
  MatchGroupTable.redim(0, false);
  DirTable.redim(0, false);
  releaseBlockPool();
  FilePointerArray.redim(0, false);
  allocateProfileDirList();
  ZipEntryList.redim(roomOfListing, false);
  allocateFileTypeTable();
}

}  // namespace

void Main() {
  procedure("Main", [] {
    openLog();
    basLogMsg("Starting " + ExeName);
    TempDir = AppPath + "\\Temp";
    ProfilesDir = AppPath + "\\Profiles";
    TempUsedKB = 0;
    ensureDirectory(ProfilesDir);
    ensureDirectory(TempDir);
    allocateTables();
    basLoadProfile("GLOBAL");
    if (modalForms.frmSplashScreen) modalForms.frmSplashScreen();
    ProfileName = CommandLineProfile;
    frmMain().load();
    frmMain().setCaption(mainCaption(programVersion));
    frmMain().show();
  });
}

}  // namespace quernstoke
