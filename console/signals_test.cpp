#include "console/signals.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

int seenByTest = 0;

void noteSignal(int /*number*/) {
  ++seenByTest;
}

TEST(StopSignalsTest, AreCountedInsteadOfEndingTheProcess) {
  const StopSignals signals;
  EXPECT_EQ(StopSignals::count(), 0);
  for (const int number : {SIGINT, SIGTERM, SIGHUP})
    std::raise(number);
  EXPECT_EQ(StopSignals::count(), 3);
}

TEST(StopSignalsTest, AreCountedFromTheBeginning) {
  {
    const StopSignals earlier;
    std::raise(SIGINT);
  }
  const StopSignals signals;
  EXPECT_EQ(StopSignals::count(), 0);
}

TEST(StopSignalsTest, GoAfterwardsWhereTheyWentBefore) {
  const auto before = std::signal(SIGTERM, noteSignal);
  { const StopSignals signals; }
  seenByTest = 0;
  std::raise(SIGTERM);
  EXPECT_EQ(seenByTest, 1);
  std::signal(SIGTERM, before);
}

TEST(StopSignalsTest, StayIgnoredIfTheyWere) {
  const auto before = std::signal(SIGINT, SIG_IGN);
  {
    const StopSignals signals;
    std::raise(SIGINT);
    EXPECT_EQ(StopSignals::count(), 0);
  }
  std::signal(SIGINT, before);
}

}  // namespace
}  // namespace quernstoke
