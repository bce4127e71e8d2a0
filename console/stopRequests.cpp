#include "console/stopRequests.h"

#include <algorithm>
#include <iterator>

#include "console/signals.h"
#include "console/standardError.h"
#include "core/scanState.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {

namespace {

void requestAbort() {
  if (RunState == runState::comparing || RunState == runState::buildingList ||
      RunState == runState::pauseRequested)
    RunState = runState::abortRequested;
}

}  // namespace

// Asked for again at each yield, because the beginning of a pass takes an earlier request back.
void StopRequests::atYield() {
  if (StopSignals::count() == 0) return;
  if (asksForPause())
    tellOnce();
  else
    requestAbort();
}

void StopRequests::atPrimary(Int32 file) {
  if (RunState != runState::comparing || !asksForPause()) return;
  if (isLastOfItsGroup(file) || patienceIsOver()) RunState = runState::pauseRequested;
}

bool StopRequests::asksForPause() const {
  return onStop_ == OnStop::pause && StopSignals::count() == 1;
}

bool StopRequests::patienceIsOver() {
  const auto now = std::chrono::steady_clock::now();
  if (!waitingSince_) waitingSince_ = now;
  return now - *waitingSince_ >= patience_;
}

void StopRequests::tellOnce() {
  if (told_ || RunState == runState::idle) return;  // Until the scan has begun.
  told_ = true;
  const bool building = RunState == runState::buildingList;
  err_.line(building ? "quernstoke-scan: the scan will pause once the list of files is built; a "
                       "second signal aborts it"
                     : "quernstoke-scan: the scan will pause after the files at hand; a second "
                       "signal aborts it");
}

bool isLastOfItsGroup(Int32 file) {
  const MatchGroup* const first = MatchGroupTable.data() + 1;
  const MatchGroup* const end = first + MatchGroupCount.raw();
  const MatchGroup* const behind = std::upper_bound(
      first, end, file, [](Int32 number, const MatchGroup& group) { return number < group.first; });
  if (behind == first) return false;
  const MatchGroup& group = *std::prev(behind);
  return file == group.first + group.count - 1;
}

}  // namespace quernstoke
