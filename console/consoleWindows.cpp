#include "console/consoleWindows.h"

#include <utility>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "console/scanTally.h"
#include "console/standardError.h"
#include "console/stopRequests.h"
#include "core/modMain.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/text.h"
#include "progress/scanStatus.h"
#include "settings/settings.h"

namespace quernstoke {

void ConsoleMainWindow::load() {
  isLoaded_ = true;
  TempDir = GlobalSettings.TempPath;
}

void ConsoleScanStatus::show() {
  // The engine yields far more often with the long view on, and signals are seen at yields.
  ScanDetailsShown = true;
  tally_.begin();
}

void ConsoleScanStatus::unload() {
  err_.clearProgress();
}

void ConsoleScanStatus::labScanStatus(std::string_view text) {
  statusText_ = text.substr(0, text.find_last_not_of(' ') + 1);
  showsPrimary_ = false;
}

void ConsoleScanStatus::labFile1(std::string_view /*text*/) {
  showsPrimary_ = true;
}

// Comes behind an update that names the next primary file, and also at the end of a pass.
void ConsoleScanStatus::basUpdateStatusBar() {
  if (std::exchange(showsPrimary_, false)) stops_.atPrimary(StatusFileNumber);
}

void ConsoleScanStatus::paint() {
  if (!showsProgress_) return;
  constexpr std::chrono::milliseconds interval(100);
  const auto now = std::chrono::steady_clock::now();
  if (now < nextPaint_) return;
  nextPaint_ = now + interval;
  err_.showProgress(progressText());
}

std::string ConsoleScanStatus::progressText() const {
  std::string text = statusText_ + "  " + toText(FileCount) + " files";
  if (RunState == runState::buildingList) return text + ", " + toText(DirCount) + " directories";
  if (FileCount > 0)
    text += ", " + std::to_string(wholePercent(StatusFileNumber.raw(), FileCount.raw())) + "%";
  text += ", " + toText(DuplicateCount) + " duplicates";
  if (!remainingTime_.empty()) text += ", " + remainingTime_ + " left";
  return text;
}

}  // namespace quernstoke
