#pragma once

#include <chrono>
#include <optional>

#include "core/integers.h"

namespace quernstoke {

class StandardError;

// What the first signal asks of a scan. A second one always aborts.
enum class OnStop { pause, abort };

// Turns the signals that have come in into what the buttons of the scan status window would do.
class StopRequests {
 public:
  // A group of many thousand files can take hours, and whoever sent the signal won't wait for that.
  // So a pause waits for the end of a group as long as its patience lasts.
  StopRequests(OnStop onStop, StandardError& err,
               std::chrono::seconds patience = std::chrono::seconds(10))
      : onStop_(onStop), err_(err), patience_(patience) {}

  // At each yield of the scan.
  void atYield();

  // Before a primary file is compared with the files behind it. A scan is paused here only: a pause
  // while the list is built would lose files, and one in the middle of a group the comparisons that
  // are left of it, for a continued scan begins with the group behind.
  void atPrimary(Int32 file);

 private:
  bool asksForPause() const;
  bool patienceIsOver();
  void tellOnce();

  OnStop onStop_;
  StandardError& err_;
  std::chrono::seconds patience_;
  bool told_ = false;
  std::optional<std::chrono::steady_clock::time_point> waitingSince_;
};

// Whether the file is the last one of its group of the current pass.
bool isLastOfItsGroup(Int32 file);

}  // namespace quernstoke
