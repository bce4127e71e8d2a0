#include "core/scanState.h"

#include <set>

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using ScanStateTest = EngineTest;

TEST_F(ScanStateTest, OnlyARequestStopsALoop) {
  std::set<int> stops;
  for (std::int16_t state = 0; state <= 7; ++state) {
    RunState = state;
    if (!basCheckRunState()) stops.insert(state);
  }
  EXPECT_THAT(stops, testing::ElementsAre(3, 5));
}

}  // namespace
}  // namespace quernstoke
