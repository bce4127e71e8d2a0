#include "mainui/statusPanels.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "core/text.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

std::string_view stateWord(Int16 runMode) {
  switch (runMode.raw()) {
    case runState::idle:
      return "Finished";
    case runState::paused:
      return "Paused";
    case runState::aborted:
      return "Aborted";
    case runState::finished:
      return "Completed";
    default:
      return "Unknown";
  }
}

}  // namespace

std::array<PanelText, 5> mainStatusPanels() {
  const std::string duplicates = DuplicateCount == -1 ? "?" : toText(DuplicateCount);
  return {{{1, "Profile: " + ProfileName, "150"},
           {3, "Files: " + toText(FileCount), "151"},
           {5, "Directories: " + toText(DirCount), "152"},
           {7, "Duplicates: " + duplicates, "153"},
           {9, "State: " + std::string(stateWord(ProfileSettings.RunMode)), "154"}}};
}

}  // namespace quernstoke
