// Procedures of the engine on a catalogue of a million files. Prints times, asserts nothing.

#include <benchmark/benchmark.h>
#include <random>
#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "core/startUpState.h"
#include "detect/modLinkedList.h"
#include "results/matchGroupIndex.h"

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

}  // namespace
}  // namespace quernstoke
