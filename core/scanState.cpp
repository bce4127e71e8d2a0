#include "core/scanState.h"

namespace quernstoke {

Int16 RunState;
Int16 StartMode;
bool MatchByName;
bool MatchByContent;
bool MatchBySize;
DateTime ScanStartTime;
DateTime EstimatedEndTime;
FixedPoint MinSizeBytes;
FixedPoint MaxSizeBytes;
Int16 ScanAttributes;
Int16 CurrentMatchNum;
Int32 DuplicateCount;
Int16 ContentPercentLimit;
Int32 StatusFileNumber;
Int32 ActualReads;
Int32 LocalReads;
Int32 BufferReads;

bool basCheckRunState() {
  return RunState != runState::pauseRequested && RunState != runState::abortRequested;
}

bool isWithinSizeLimits(Int32 size) {
  return size.raw() >= MinSizeBytes.toDouble() && size.raw() <= MaxSizeBytes.toDouble();
}

}  // namespace quernstoke
