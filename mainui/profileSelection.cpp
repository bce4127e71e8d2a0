#include "mainui/profileSelection.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "platform/eventLoop.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

void basProcessProfileSelection(bool& ok) {
  procedure("basProcessProfileSelection", [&] {
    constexpr int roomForFiles = 5000;
    ok = false;
    if (ProfileName.empty() || !basLoadProfile("PROFILE")) return;
    frmMain().basUpdateProfileObjects(ProfileName);
    DuplicateCount = ProfileSettings.NumDuplicates;
    events().yield();
    if (!frmMain().isLoaded()) return;  // Closed by the person, or a scan was started and is over.
    basRedimFilesArrays(roomForFiles, false);
    basLoadFilesList();
    basLoadDirTable();
    if (DirCount > 0) DirTable.redim(DirCount, true);
    if (FileCount > 0) basRedimFilesArrays(FileCount, true);
    frmMain().basUpdateStatusBar();
    ok = true;
  });
}

}  // namespace quernstoke
