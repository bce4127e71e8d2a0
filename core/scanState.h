#pragma once

#include "core/fixedPoint.h"
#include "core/integers.h"
#include "platform/dateTime.h"

namespace quernstoke {

// Values of RunState; the one in which a scan ends is kept in the profile as its RunMode.
namespace runState {
constexpr std::int16_t idle = 0;  // Also while the two directories of a side by side view are read.
constexpr std::int16_t comparing = 1;
constexpr std::int16_t paused = 2;
constexpr std::int16_t pauseRequested = 3;
constexpr std::int16_t aborted = 4;
constexpr std::int16_t abortRequested = 5;
constexpr std::int16_t finished = 6;
constexpr std::int16_t buildingList = 7;
}  // namespace runState

// Values of StartMode, and of the start-mode argument that refinement takes.
namespace startMode {
constexpr std::int16_t none = 0;
constexpr std::int16_t newScan = 1;
constexpr std::int16_t continueScan = 2;
constexpr std::int16_t refresh = 3;  // Never a StartMode: asks refinement for a recount.
}  // namespace startMode

extern Int16 RunState;
extern Int16 StartMode;

// What the letters of the profile's MatchingCriteria ask for.
extern bool MatchByName;
extern bool MatchByContent;
extern bool MatchBySize;

// Prepared at the start of each scan.
extern DateTime ScanStartTime;
extern DateTime EstimatedEndTime;
extern FixedPoint MinSizeBytes;
extern FixedPoint MaxSizeBytes;
extern Int16 ScanAttributes;
extern Int16 CurrentMatchNum;  // -1 before the first match of a scan.
extern Int32 DuplicateCount;
extern Int16 ContentPercentLimit;

// The scan's position: the file number that the progress figures use.
extern Int32 StatusFileNumber;

// How many blocks came from the files themselves, from local copies and from the block pool.
extern Int32 ActualReads;
extern Int32 LocalReads;
extern Int32 BufferReads;

// Whether a long loop is to go on: false once a pause or an abort was asked for.
bool basCheckRunState();

// Whether a file of this size is of interest to the scan.
bool isWithinSizeLimits(Int32 size);

}  // namespace quernstoke
