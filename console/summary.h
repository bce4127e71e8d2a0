#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/passedOver.h"

namespace quernstoke {

// How a run went, for its last line.
struct Summary {
  enum class Outcome { finished, paused, aborted, failed };

  Outcome outcome = Outcome::finished;
  std::int64_t files = 0;
  std::int64_t duplicates = 0;  // Files beyond the first of each set.
  double seconds = 0;
  PassedOver passedOver;
};

std::string summaryLine(const Summary& summary);

}  // namespace quernstoke
