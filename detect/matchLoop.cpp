#include "detect/matchLoop.h"

#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/text.h"
#include "detect/beginnings.h"
#include "detect/contentCompare.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "progress/scanStatus.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

constexpr const char* searching = "Searching for duplicates...";

// How far the restart points of a continued pass are used up.
enum class Resume { none, primary, secondary, done };

bool isOfPair(const DirSpec& spec) {
  return spec.IncludeExclude == "1" || spec.IncludeExclude == "2";
}

// Whether any pair has to be asked for. In a list without a free slot asking itself may fail.
bool profileExcludesPairs() {
  for (Int16 slot = 1; slot <= lastDirSlot && !ProfileDirList[slot].Dir.empty(); ++slot)
    if (isOfPair(ProfileDirList[slot]) || slot == lastDirSlot) return true;
  return false;
}

// One run of basCompareFiles.
class MatchPass {
 public:
  explicit MatchPass(std::string_view mode) : isName_(mode == "NAME"), isSize_(mode == "SIZE") {}

  void run();

 private:
  void beginPass();
  void compareGroup();
  void comparePrimary();
  void compareWithSecondaries();
  bool canPassOver() const;
  bool isCandidate();
  void numberSecondary(bool& numbered);
  void showPosition();
  void endPass();

  const bool isName_;
  const bool isSize_;
  Resume resume_ = Resume::none;
  bool excludesPairs_ = false;
  Int32 interval_ = 1;  // Primaries between two updates of the status, less one.
  Int32 counter_;
  Int32 group_ = 1;
  Int32 groupFirst_;
  Int32 groupCount_;  // Falls as primaries are done with.
  Int32 groupLast_;
  Int32 primary_;
  Int32 secondary_;
};

void MatchPass::run() {
  if (FileCount >= 5000) interval_ = roundedQuotient(FileCount.raw(), 1000);
  RunState = runState::comparing;
  if (FileCount == 0) return;
  beginPass();
  while (basCheckRunState() && group_ <= MatchGroupCount)
    compareGroup();
  endPass();
}

void MatchPass::beginPass() {
  basUpdateStatusFields(searching, -1, 0);
  excludesPairs_ = profileExcludesPairs();
  if (StartMode == startMode::continueScan) {
    resume_ = Resume::primary;
    group_ = ProfileSettings.RestartPointMatchGroup;
  }
}

void MatchPass::compareGroup() {
  groupFirst_ = MatchGroupTable[group_].first;
  groupCount_ = MatchGroupTable[group_].count;
  groupLast_ = groupFirst_ + groupCount_ - 1;
  if (groupCount_ > 2)
    BuffersPerFile = basLLInitializeBuffer(groupFirst_, groupLast_, BlockPoolCount, groupCount_);
  Beginnings.redim(groupFirst_, groupCount_ > 2 ? groupCount_ : Int32(0));
  primary_ = groupFirst_;
  if (resume_ == Resume::primary) {
    primary_ = ProfileSettings.RestartPointPrimaryFile;
    resume_ = Resume::secondary;
  }
  // Asked of the first file alone, on behalf of the whole group.
  if (FileTable.FileStatus[statusMatch][primary_] == noMatch)
    for (; basCheckRunState() && primary_ <= groupLast_; ++primary_)
      comparePrimary();
  // A stopped pass goes through here too, so its restart point names the group behind.
  ++group_;
}

// Deletes the local copy of a file that no later comparison of the pass needs.
void dropLocalCopy(Int32 file) {
  const std::string name(FileTable.FileLocalName[file]);
  if (name.empty()) return;
  if (!startsWithIgnoringCase(name, TempDir)) {
    dialogs().messageBox("Internal error. Local file buffer not in expected temp dir");
    return;
  }
  if (basFileExists(name))
    basDeleteTempFile(name);
  else
    basLogMsg("Unable to delete temp file" + name + "because the file is missing");
  FileTable.FileLocalName.set(file, "");
}

void MatchPass::comparePrimary() {
  if (counter_ < interval_) {
    ++counter_;
  } else {
    counter_ = 0;
    basUpdateStatusFields(searching, primary_, 0);
    showPosition();
  }
  secondary_ = primary_ + 1;
  if (resume_ == Resume::secondary) {
    secondary_ = ProfileSettings.RestartPointSecondaryFile;
    resume_ = Resume::done;
  }
  compareWithSecondaries();
  dropLocalCopy(primary_);
  if (groupCount_ > 2)
    BuffersPerFile = basLLRemoveFileFromBuffer(primary_, primary_ - groupFirst_ + 1, BlockPoolCount,
                                               groupCount_);
}

void MatchPass::compareWithSecondaries() {
  bool numbered = false;
  bool primaryFailed = false;
  for (; secondary_ <= groupLast_ && !primaryFailed; ++secondary_) {
    if (canPassOver()) secondary_ = Beginnings.passOverDifferent(primary_, secondary_, groupLast_);
    if (secondary_ > groupLast_) return;
    const bool skip =
        FileTable.FileStatus[statusMatch][secondary_] != noMatch || secondary_ == primary_;
    if (basCompareFilesCheckExclusion(primary_, secondary_) || skip) continue;
    const bool matches = isCandidate();
    primaryFailed = FileTable.FileStatus[statusState][primary_] == fileState::unreadable;
    if (matches) numberSecondary(numbered);
  }
}

// Whether a pair whose first blocks differ would have no effect but on the read counters.
bool MatchPass::canPassOver() const {
  // The runs of a continued list may hold different keys, whose files are not read at all.
  return StartMode != startMode::continueScan && MatchByContent && !excludesPairs_ &&
         groupCount_ > 2 && ContentPercentLimit > 0 && Beginnings.knows(primary_) &&
         FileTable.FileSize[primary_] > 0 &&
         FileTable.FileStatus[statusState][primary_] != fileState::unreadable;
}

bool MatchPass::isCandidate() {
  if (isName_ && !equalIgnoringCase(FileTable.FileName[primary_], FileTable.FileName[secondary_]))
    return false;
  const Int32 size = FileTable.FileSize[secondary_];
  if (isSize_ && (size == 0 || size != FileTable.FileSize[primary_])) return false;
  return !MatchByContent || basCompareFileContent(primary_, secondary_, groupFirst_, groupCount_) >=
                                ContentPercentLimit;
}

// A primary that has a number from an earlier match leaves that for the new one.
void MatchPass::numberSecondary(bool& numbered) {
  if (!numbered) {
    numbered = true;
    ++CurrentMatchNum;
    FileTable.FileStatus[statusMatch][primary_] = CurrentMatchNum;
  }
  FileTable.FileStatus[statusMatch][secondary_] = CurrentMatchNum;
  ++DuplicateCount;
}

void MatchPass::showPosition() {
  StatusFileNumber = primary_;
  showPositionInStatusBar();
}

void MatchPass::endPass() {
  if (basCheckRunState()) {
    ProfileSettings.RestartPoint = 0;
  } else {
    ProfileSettings.RestartPointMatchGroup = group_;
    ProfileSettings.RestartPointPrimaryFile = primary_;
    ProfileSettings.RestartPointSecondaryFile = secondary_;
    ProfileSettings.RestartPoint = isName_ ? 1 : 2;
    ProfileSettings.RestartPointNumDuplicates = DuplicateCount;
  }
  ProfileSettings.MatchNum = CurrentMatchNum;
  basSaveProfile("PROFILE");
  showPosition();
}

}  // namespace

void basCompareFiles(std::string_view mode) {
  procedure("basCompareFiles", [&] { MatchPass(mode).run(); });
}

bool basCompareFilesCheckExclusion(Int32 primary, Int32 secondary) {
  return procedure("basCompareFilesCheckExclusion", [&] {
    std::string directories[2];
    // Never cleared between pairs: a first half that was seen counts for all second halves after.
    bool seenFirst = false;
    bool seenSecond = false;
    for (Int16 slot = 1; !ProfileDirList[slot].Dir.empty(); ++slot) {
      const DirSpec& spec = ProfileDirList[slot];
      if (!isOfPair(spec)) continue;
      if (directories[0].empty()) {
        directories[0] = basGetDirnameFromFilenum(primary);
        directories[1] = basGetDirnameFromFilenum(secondary);
      }
      for (const std::string& directory : directories) {
        if (!appliesTo(spec, directory)) continue;
        if (spec.IncludeExclude == "1")
          seenFirst = true;
        else
          seenSecond = seenFirst;
      }
      if (seenFirst && seenSecond) return true;
    }
    return false;
  });
}

}  // namespace quernstoke
