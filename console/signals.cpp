#include "console/signals.h"

namespace quernstoke {

namespace {

volatile std::sig_atomic_t signalCount = 0;

void countSignal(int /*number*/) {
  signalCount = signalCount + 1;
}

}  // namespace

StopSignals::StopSignals() {
  signalCount = 0;
  sigset_t counted;
  sigemptyset(&counted);
  for (const int number : numbers)
    sigaddset(&counted, number);
  struct sigaction counting {};
  counting.sa_handler = countSignal;
  counting.sa_mask = counted;  // One at a time, so that none is lost from the count.
  counting.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    ::sigaction(numbers[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) ::sigaction(numbers[i], &counting, nullptr);
  }
  // Some starters leave them blocked, and then nothing could stop a scan.
  ::sigprocmask(SIG_UNBLOCK, &counted, nullptr);
}

StopSignals::~StopSignals() {
  for (std::size_t i = 0; i < numbers.size(); ++i)
    ::sigaction(numbers[i], &before_[i], nullptr);
}

int StopSignals::count() {
  return signalCount;
}

}  // namespace quernstoke
