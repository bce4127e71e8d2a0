#pragma once

#include <array>
#include <csignal>

namespace quernstoke {

// While it lives, SIGINT, SIGTERM and SIGHUP are counted instead of ending the process; those that
// the process was started to ignore stay ignored.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  // How many have come in since the last object began to count.
  static int count();

 private:
  static constexpr std::array<int, 3> numbers = {SIGINT, SIGTERM, SIGHUP};

  std::array<struct sigaction, numbers.size()> before_{};
};

}  // namespace quernstoke
