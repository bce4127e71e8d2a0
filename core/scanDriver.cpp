#include "core/scanDriver.h"

#include "catalogue/dirTable.h"
#include "catalogue/directoryWalk.h"
#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/text.h"
#include "detect/matchLoop.h"
#include "detect/modLinkedList.h"
#include "detect/refinement.h"
#include "detect/tempStore.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/locale.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "progress/scanStatus.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

// The stages of a scan, in their order.
enum class Stage {
  begin,
  buildList,
  choosePass,
  compareNames,
  dropUnnamed,
  compareSizes,
  dropUnmatched,
  done
};

void dateProfile() {
  for (Int16 slot = 0; slot <= lastProfileSlot; ++slot) {
    if (!equalIgnoringCase(ProfileList.ProfileNameList[slot], ProfileName)) continue;
    ProfileList.ProfileDateList[slot] = userLocale().generalDate(systemClock().now());
    return;
  }
}

bool criteriaHold(char letter) {
  return upper(ProfileSettings.MatchingCriteria).find(letter) != std::string::npos;
}

void prepareScan() {
  constexpr int secondsOfFirstEstimate = 5 * 60;
  const DateTime now = systemClock().now();
  ScanStartTime = now;
  EstimatedEndTime = {now.seconds + secondsOfFirstEstimate};
  prepareWalk();
  CurrentMatchNum = ProfileSettings.MatchNum;
  ActualReads = LocalReads = BufferReads = 0;
  LocalCopyActive = ProfileSettings.SlowNetwork && GlobalSettings.TransferFileLocally;
  ContentPercentLimit = ProfileSettings.ContentMatchingPercent;
  TempFileCounter = 1;
  allocateBlockPool(GlobalSettings.FileBufferSize, GlobalSettings.NumberOfFileBuffers);
  TempDir = GlobalSettings.TempPath;
}

bool ensureTempDir() {
  if (basDirExists(TempDir)) return true;
  if (ignoringFailure([] { files().makeDirectory(TempDir); }) == 0) return true;
  dialogs().messageBox("Unable to create temporary directory " + TempDir);
  frmScanStatus().unload();
  frmMain().show();
  return false;
}

void setTempSpaceBudget() {
  const FixedPoint bytes = basConvertSize(GlobalSettings.TransferMaxDiskSpace,
                                          GlobalSettings.TransferMaxDiskSpaceMeasure);
  TempSpaceBudgetKB = roundedQuotient(bytes.tenThousandths(), FixedPoint::scale * 1024);
}

// A profile may have lost the last number that it gave. What bears a number must not be joined by
// files that only equal one another.
void passOverNumbersInUse() {
  for (Int32 file = 1; file <= FileCount; ++file) {
    const Int32 number = FileTable.FileStatus[statusMatch][file];
    if (number > Int32(CurrentMatchNum)) CurrentMatchNum = number;
  }
}

void takeUpPausedScan() {
  ScanStartTime = {systemClock().now().seconds - ProfileSettings.ElapsedTime.raw()};
  DuplicateCount = ProfileSettings.RestartPointNumDuplicates;
  passOverNumbersInUse();
  basResetLocalFilesList();
}

void startWithEmptyCatalogue() {
  FileCount = 0;
  DirCount = 0;
  DuplicateCount = 0;
  CurrentMatchNum = -1;
  basRedimFilesArrays(1000, false);
  DirTable.redim(1024, false);
  showPercentWhenMinimised();
}

void comparePass(std::string_view mode) {
  basPrepareFilesListForCompare(mode, StartMode);
  basCompareFiles(mode);
}

// Runs one stage and tells which one follows.
Stage runStage(Stage stage) {
  switch (stage) {
    case Stage::begin:
      return StartMode == startMode::continueScan ? Stage::choosePass : Stage::buildList;
    case Stage::buildList:
      basBuildDirectoryList();
      return Stage::choosePass;
    case Stage::choosePass:
      return MatchByName ? Stage::compareNames : Stage::compareSizes;
    case Stage::compareNames:
      comparePass("NAME");
      return Stage::dropUnnamed;
    case Stage::dropUnnamed:
      basRemoveFilesByCriteria("NOMATCH");
      return MatchByContent || MatchBySize ? Stage::compareSizes : Stage::done;
    case Stage::compareSizes:
      comparePass("SIZE");
      return Stage::dropUnmatched;
    case Stage::dropUnmatched:
      basRemoveFilesByCriteria("NOMATCH");
      return Stage::done;
    case Stage::done:
      break;
  }
  return Stage::done;
}

// A pause or an abort is seen after each stage, and in the stages' own loops.
void runStages() {
  for (Stage stage = Stage::begin; stage != Stage::done;) {
    stage = runStage(stage);
    if (!basCheckRunState()) return;
  }
}

void settleRunState() {
  if (RunState == runState::pauseRequested)
    RunState = runState::paused;
  else if (RunState == runState::abortRequested || RunState == runState::buildingList)
    RunState = runState::aborted;
  else if (RunState == runState::comparing)
    RunState = runState::finished;
}

void saveOutcome() {
  ProfileSettings.RunMode = RunState;
  ProfileSettings.NumDuplicates = DuplicateCount;
  ProfileSettings.ElapsedTime = secondsBetween(ScanStartTime, systemClock().now());
  basSaveProfile("PROFILE");
}

void showFollowingWindow() {
  frmScanStatus().setTag("OK");
  frmScanStatus().unload();
  if (RunState == runState::aborted || RunState == runState::paused)
    frmMain().show();
  else
    frmResults().show();
}

}  // namespace

void basStartScan() {
  procedure("basStartScan", [] {
    closeLog();
    openLog();
    dateProfile();
    MatchByName = criteriaHold('N');
    MatchByContent = criteriaHold('C');
    MatchBySize = criteriaHold('S');
    // TempDir is still that of the main window or of the previous scan: the copies to clear lie
    // there, whatever the setting says now.
    deleteFiles(TempDir + "\\TMP*.*");
    basDoScan();
    closeLog();
  });
}

void basDoScan() {
  procedure("basDoScan", [] {
    frmScanStatus().show();
    frmMain().unload();
    RunState = runState::buildingList;
    StatusFileNumber = 0;
    basUpdateStatusFields("Initializing...", -1, 0);
    prepareScan();
    if (!ensureTempDir()) return;
    setTempSpaceBudget();
    if (StartMode == startMode::continueScan) takeUpPausedScan();
    if (StartMode == startMode::newScan) startWithEmptyCatalogue();

    runStages();

    basSaveFilesList();
    basSaveDirTable();
    settleRunState();
    saveOutcome();
    showFollowingWindow();
  });
}

void basPrepareFilesListForCompare(std::string_view mode, Int16 start) {
  procedure("basPrepareFilesListForCompare", [&] {
    basSortFilesList(mode, true);
    if (start == startMode::newScan || start == startMode::refresh) basPruneFilesList(mode);
    basSetupMatchGroupInfo(mode, start);
  });
}

void basUpdateStateOptions(FrameControl& fraStartMode, OptionControl& optionNew,
                           OptionControl& optionContinue) {
  procedure("basUpdateStateOptions", [&] {
    const Int16 mode = ProfileSettings.RunMode;
    if (mode >= runState::comparing && mode <= runState::pauseRequested) {
      fraStartMode.setVisible(true);
      optionNew.setEnabled(true);
      optionContinue.setEnabled(true);
      optionContinue.select();
    } else if (mode >= runState::idle && mode <= runState::buildingList) {
      fraStartMode.setVisible(false);
      optionNew.select();
    }
  });
}

}  // namespace quernstoke
