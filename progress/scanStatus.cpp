#include "progress/scanStatus.h"

#include "catalogue/fileTable.h"
#include "catalogue/fullFilePath.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/text.h"
#include "platform/clock.h"
#include "platform/eventLoop.h"
#include "platform/platform.h"
#include "platform/windows.h"

namespace quernstoke {

bool ScanDetailsShown;

namespace {

// The first few files say nothing of the pace.
constexpr int filesBeforeEstimate = 9;

void showFile(Int32 file) {
  ScanStatusWindow& window = frmScanStatus();
  const std::string directory = basGetDirnameFromFilenum(file);
  window.labFile1(basBuildFullFilePath(window.labFile1Width(), FileTable.FileName[file], directory,
                                       window.labSizer()));
}

void showEstimate(DateTime now, Int32 fileNumber) {
  // The remaining time still goes by the estimate of the previous update.
  frmScanStatus().labRemainingTime(basDateToDuration(now, EstimatedEndTime, 0));
  const Int32 elapsed = secondsBetween(ScanStartTime, now);
  EstimatedEndTime.seconds =
      ScanStartTime.seconds +
      roundedQuotient(std::int64_t{elapsed.raw()} * FileCount.raw(), fileNumber.raw());
  frmScanStatus().labEstimatedTime(basDateToDuration(ScanStartTime, EstimatedEndTime, 0));
}

void showTimes(Int32 fileNumber) {
  const DateTime now = systemClock().now();
  frmScanStatus().labElapsedTime(basDateToDuration(ScanStartTime, now, 0));
  if (RunState == runState::buildingList) {
    frmScanStatus().labRemainingTime("");
    frmScanStatus().labEstimatedTime("");
  } else if (fileNumber > filesBeforeEstimate) {
    showEstimate(now, fileNumber);
  }
}

void showReadCounters() {
  frmScanStatus().labBufferReads(toText(BufferReads));
  frmScanStatus().labLocalFileReads(toText(LocalReads));
  frmScanStatus().labRemoteFileReads(toText(ActualReads));
}

std::string percentCaption() {
  const std::int64_t percent =
      FileCount > 0 ? wholePercent(StatusFileNumber.raw(), FileCount.raw()) : 0;
  return "Scanning..." + std::to_string(percent) + "%";
}

}  // namespace

void basUpdateStatusFields(std::string_view text, Int32 fileNumber, Int16 force) {
  procedure("basUpdateStatusFields", [&] {
    if (!text.empty()) frmScanStatus().labScanStatus(text);
    if (!frmScanStatus().minimised() && (force != 0 || ScanDetailsShown)) {
      if (fileNumber != -1) showFile(fileNumber);
      showTimes(fileNumber);
      showReadCounters();
    }
    events().yield();
  });
}

void showPercentWhenMinimised() {
  if (frmScanStatus().minimised())
    frmScanStatus().setCaption(percentCaption());
  else
    frmScanStatus().refresh();
}

void showPositionInStatusBar() {
  if (frmScanStatus().minimised())
    frmScanStatus().setCaption(percentCaption());
  else
    frmScanStatus().basUpdateStatusBar();
}

}  // namespace quernstoke
