#include "core/startUpState.h"

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
  RunState = StartMode = ScanAttributes = CurrentMatchNum = ContentPercentLimit = HelpState = 0;
  MatchByName = MatchByContent = MatchBySize = ScanDetailsShown = false;
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
  FileCount = DirCount = MatchGroupCount = 0;
  basRedimFilesArrays(0, false);
  DirTable.redim(0, false);
  MatchGroupTable.redim(0, false);
  FilePointerArray.redim(0, false);
  ExtensionList.redim(lastExtensionSlot, false);
  ZipEntryList.redim(0, false);
  ZipEntryCount = 0;
  ZipMessages.clear();
  ZipPasswordOff = false;
}

void resetDetection() {
  releaseBlockPool();
  Beginnings.redim(1, 0);
  BuffersPerFile = 0;
  LocalCopyActive = false;
  TempSpaceBudgetKB = TempUsedKB = TempFileCounter = 0;
}

void resetDialogs() {
  DialogText.clear();
  DialogValue = DialogValue2 = 0;
  modalForms = {};
}

void resetResults() {
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

}  // namespace

void resetToStartUpState() {
  resetCore();
  resetSettings();
  resetCatalogue();
  resetDetection();
  resetDialogs();
  resetResults();
  resetDirMatch();
}

}  // namespace quernstoke
