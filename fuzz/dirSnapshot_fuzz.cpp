// The snapshot of the directories of a scan.

#include <optional>
#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "fuzz/require.h"
#include "testing/standIns.h"

namespace quernstoke {
namespace {

const std::string path = "C:\\Quernstoke\\Profiles\\Fuzz.dir";

// A quotation mark in a field that was not quoted can't be written; no path of a disk holds one.
bool canBeWrittenAsItIs() {
  for (Int32 row = 1; row <= DirCount; ++row)
    if (DirTable[row].name.find('"') != std::string::npos || DirTable[row].kind == '"')
      return false;
  return true;
}

// Loads the snapshot; false if it was told to be damaged.
bool load(StandIns& engine) {
  engine.dialogBoxes.messages.clear();
  basLoadDirTable();
  // Of a damaged snapshot too: the profile selection makes rows for all that is counted.
  constexpr std::size_t farthestAhead = 1000000;
  constexpr std::size_t growth = 1024;  // A number within the table as it grew is taken as well.
  const Int32 most = engine.disk.content(path).size() + farthestAhead + growth;
  require(DirCount <= most, "the count of directories is in proportion to the snapshot");
  require(engine.dialogBoxes.messages.size() <= 1, "damage is told of once");
  const bool loaded = engine.dialogBoxes.messages.empty();
  require(!loaded || DirCount <= DirTable.upperBound(), "all directories have a row");
  require(!loaded || engine.disk.openFiles() == 0, "a snapshot that was loaded is closed");
  return loaded;
}

// The saved snapshot of what was loaded from a snapshot, and how many directories that is.
struct Saved {
  std::string bytes;
  Int32 count;
};

// Loads the snapshot into tables that nothing was loaded into. Nothing is saved if it is damaged.
std::optional<Saved> loadAndSave(const std::string& bytes) {
  StandIns engine;
  ProfileName = "Fuzz";
  engine.disk.file(path, bytes);
  // Numbers that leave gaps make a table that takes long to write.
  if (!load(engine) || DirCount > 5000 || !canBeWrittenAsItIs()) return std::nullopt;
  basSaveDirTable();
  return Saved{engine.disk.content(path), DirCount};
}

void tryLoading(const std::string& bytes) {
  const std::optional<Saved> first = loadAndSave(bytes);
  if (!first) return;
  const std::optional<Saved> second = loadAndSave(first->bytes);
  require(second.has_value(), "a snapshot that was saved can be loaded");
  require(second->count == first->count || first->count < 0, "all directories are saved");
  require(second->bytes == first->bytes, "a snapshot is loaded as it was saved");
}

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  quernstoke::tryLoading({data, data + size});
  return 0;
}
