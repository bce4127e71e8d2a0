// Procedures of the engine on a catalogue of a million files. Prints times, asserts nothing.

#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <string_view>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"
#include "results/matchGroupIndex.h"
#include "results/resultsGrid.h"
#include "testing/resultsControls.h"
#include "testing/standIns.h"
#include "testing/startUpState.h"

namespace quernstoke {
namespace {

constexpr int files = 1'000'000;

std::string randomName(std::mt19937& random) {
  static constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789_";
  std::string name(12 + random() % 18, ' ');
  for (char& c : name)
    c = letters[random() % letters.size()];
  return name + ".dat";
}

void fillCatalogue() {
  resetToStartUpState();
  RunState = runState::buildingList;
  StartMode = startMode::newScan;
  basRedimFilesArrays(1000, false);
  DirTable.redim(1024, false);
  std::mt19937 random(20041102);
  for (int i = 0; i < files; ++i)
    basAddFileToList(randomName(random), 1, random() % 500'000, {});
}

void BM_PrepareFilesListForCompare(benchmark::State& state, const char* mode) {
  for (auto _ : state) {
    state.PauseTiming();
    fillCatalogue();
    state.ResumeTiming();
    basPrepareFilesListForCompare(mode, startMode::newScan);
  }
  state.counters["groups"] = MatchGroupCount.raw();
}
BENCHMARK_CAPTURE(BM_PrepareFilesListForCompare, bySize, "SIZE")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(BM_PrepareFilesListForCompare, byName, "NAME")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_AddDirToList(benchmark::State& state) {
  const auto directories = static_cast<int>(state.range(0));
  for (auto _ : state) {
    resetToStartUpState();
    DirTable.redim(1024, false);
    bool existed = false;
    for (int i = 0; i < directories; ++i)
      basAddDirToList("C:\\home\\ann\\pictures\\" + std::to_string(i), dirKind::directory, 1,
                      existed);
  }
}
BENCHMARK(BM_AddDirToList)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void BM_PoolWriteAndRead(benchmark::State& state) {
  resetToStartUpState();
  RunState = runState::buildingList;
  basRedimFilesArrays(1000, false);
  for (int i = 0; i < 3; ++i)
    basAddFileToList("file", 1, 1, {});
  allocateBlockPool(8192, 500);
  const std::string block(8192, 'x');
  for (auto _ : state) {
    basLLInitializeBuffer(1, 3, BlockPoolCount, 3);
    std::string_view data;
    for (int i = 0; i < 100; ++i) {
      basLLWriteBuffer(1, 1, i, block);
      benchmark::DoNotOptimize(basLLReadData(1, 1, i, data));
    }
  }
  state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(BM_PoolWriteAndRead);

// The results of a scan in which all files have matches, in a window of 50 rows.
struct ResultsOfAMillion {
  ResultsOfAMillion() {
    fillCatalogue();
    constexpr int filesOfAMatch = 31;
    for (int file = 1; file <= files; ++file)
      FileTable.FileStatus[statusMatch][file] = file / filesOfAMatch;
    ProfileName = "Bench";
    form.screen.rowsThatFit = 50;
    basBuildWholeGrid(form, 0, 0);
  }

  StandIns aroundIt;
  ScriptedResultsControls form;
};

void BM_FillGrid(benchmark::State& state, std::string_view mode, int position) {
  ResultsOfAMillion results;
  basFillGrid(results.form, "POS", files / 2);
  for (auto _ : state)
    basFillGrid(results.form, mode, position);
}
BENCHMARK_CAPTURE(BM_FillGrid, pageDown, "PGDN", -1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FillGrid, middle, "POS", files / 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FillGrid, end, "POS", files)->Unit(benchmark::kMillisecond);

// As for each step of a resize, which keeps the order.
void BM_BuildWholeGrid(benchmark::State& state) {
  ResultsOfAMillion results;
  for (auto _ : state)
    basBuildWholeGrid(results.form, 0, 1);
}
BENCHMARK(BM_BuildWholeGrid)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quernstoke
