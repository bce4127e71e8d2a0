#include "results/resultsWindow.h"

#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/text.h"
#include "results/localCopies.h"
#include "settings/settings.h"

namespace quernstoke {

std::array<PanelText, 4> resultsStatusPanels() {
  return {{{1, "Profile:" + ProfileName, ""},
           {3, "Files:" + toText(FileCount), ""},
           {5, "Duplicates:" + toText(DuplicateCount), ""},
           {7, "Scan time: " + basDateToDuration({}, {}, ProfileSettings.ElapsedTime), ""}}};
}

void leaveResults() {
  for (Int32 file = 1; file <= FileCount; ++file)
    deleteLocalCopy(file);
  basSaveFilesList();
  basSaveDirTable();
}

}  // namespace quernstoke
