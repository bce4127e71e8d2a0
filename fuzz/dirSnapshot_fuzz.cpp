// The snapshot of the directories of a scan.

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

void tryLoading(const std::string& bytes) {
  StandIns engine;
  ProfileName = "Fuzz";
  engine.disk.file(path, bytes);
  // Numbers that leave gaps make a table that takes long to write.
  if (!load(engine) || DirCount > 5000 || !canBeWrittenAsItIs()) return;
  const Int32 count = DirCount;
  basSaveDirTable();
  const std::string saved = engine.disk.content(path);
  require(load(engine), "a snapshot that was saved can be loaded");
  require(DirCount == count || count < 0, "all directories are saved");
  basSaveDirTable();
  require(engine.disk.content(path) == saved, "a snapshot is loaded as it was saved");
}

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  quernstoke::tryLoading({data, data + size});
  return 0;
}
