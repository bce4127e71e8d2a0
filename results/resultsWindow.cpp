#include "results/resultsWindow.h"

#include <string>

#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/text.h"
#include "detect/tempStore.h"
#include "settings/settings.h"

namespace quernstoke {

std::array<PanelText, 4> resultsStatusPanels() {
  return {{{1, "Profile:" + ProfileName, ""},
           {3, "Files:" + toText(FileCount), ""},
           {5, "Duplicates:" + toText(DuplicateCount), ""},
           {7, "Scan time: " + basDateToDuration({}, {}, ProfileSettings.ElapsedTime), ""}}};
}

namespace {

// A copy that has gone is forgotten: what gets its name later may be a person's own.
void deleteLocalCopy(Int32 file) {
  const std::string copy(FileTable.FileLocalName[file]);
  if (copy.empty()) return;
  if (basFileExists(copy)) basDeleteTempFile(copy);
  if (!basFileExists(copy)) FileTable.FileLocalName.set(file, "");
}

}  // namespace

void leaveResults() {
  for (Int32 file = 1; file <= FileCount; ++file)
    deleteLocalCopy(file);
  basSaveFilesList();
  basSaveDirTable();
}

}  // namespace quernstoke
