#include "testing/startUpState.h"

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "core/system.h"
#include "detect/beginnings.h"
#include "detect/modLinkedList.h"
#include "detect/refinement.h"
#include "detect/tempStore.h"
#include "dirmatch/dirMatchRows.h"
#include "mainui/modalForms.h"
#include "mainui/quickHelp.h"
#include "progress/scanStatus.h"
#include "results/gridPaging.h"
#include "results/matchGroupIndex.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

void resetCore() {
  for (std::string* text : {&AppPath, &ExeName, &ProfilesDir, &TempDir, &ProfileName,
                            &ProcessCommandLine, &CommandLineProfile})
    text->clear();
  LogFileNumber = 0;
  RunState = StartMode = ScanAttributes = CurrentMatchNum = ContentPercentLimit = 0;
  MatchByName = MatchByContent = MatchBySize = false;
  ScanStartTime = EstimatedEndTime = {};
  MinSizeBytes = MaxSizeBytes = DiskFreeBytes = {};
  DuplicateCount = StatusFileNumber = ActualReads = LocalReads = BufferReads = 0;
}

void resetSettings() {
  ProfileSettings = {};
  GlobalSettings = {};
  allocateProfileDirList();
  allocateFileTypeTable();
  ProfileList = {};
}

void resetCatalogue() {
  FileCount = DirCount = 0;
  basRedimFilesArrays(0, false);
  DirTable.redim(0, false);
  ExtensionList.redim(lastExtensionSlot, false);
  ZipEntryList.redim(0, false);
  ZipEntryCount = 0;
  ZipMessages.clear();
  ZipPasswordOff = false;
}

void resetDetect() {
  FilePointerArray.redim(0, false);
  releaseBlockPool();
  Beginnings.redim(1, 0);
  BuffersPerFile = 0;
  LocalCopyActive = false;
  TempSpaceBudgetKB = TempUsedKB = TempFileCounter = 0;
}

void resetProgress() {
  ScanDetailsShown = false;
}

void resetResults() {
  MatchGroupTable.redim(0, false);
  MatchGroupCount = 0;
  ResultsView = ResultsGroup = GridPageRows = GridLinesPerFile = GridPageCount = GridCurrentPage =
      0;
  GridFirstFile = GridLastFile = GridPrevScroll = 0;
}

void resetDirMatch() {
  DirMatchBase = {};
  DirMatchRows.redim(0, false);
  DirMatchRowCount = 0;
  DirMatchGridMap.redim(0, false);
}

void resetMainUi() {
  HelpState = 0;
  DialogText.clear();
  DialogValue = DialogValue2 = 0;
  modalForms = {};
}

}  // namespace

void resetToStartUpState() {
  resetCore();
  resetSettings();
  resetCatalogue();
  resetDetect();
  resetProgress();
  resetResults();
  resetDirMatch();
  resetMainUi();
}

}  // namespace quernstoke
