#pragma once

#include <iosfwd>
#include <string>

#include "testing/memoryFileSystem.h"
#include "testing/scriptedArchives.h"

// Runs of the whole program in which calls of it fail: which calls, and how.
namespace quernstoke::sabotage {

// The last two go on from the call that they break.
enum class Fault { usual, diskFull, outOfMemory, staysFull, mediumGone };

// A paused scan is broken on its way to the pause, a continued one after it. The first scan of all
// begins with no settings and no directories of the program's.
enum class Scan { whole, paused, continued, first };

// What the scan compares and how.
enum class Way {
  slowMedium,  // Content, block by small block, with local copies. A whole scan compares names too.
  names,       // The same with names, also in a scan that is paused.
  inPlace,     // Content of long files in large blocks, the beginnings of which are remembered.
  extracted,   // Names and content, also of entries that can be read: behind a thousand files.
};

struct Case {
  Scan scan;
  Fault fault;
  Way way = Way::slowMedium;
};

std::string nameOf(const Case& given);
void PrintTo(const Case& given, std::ostream* out);

bool goesOn(Fault fault);
bool isOfRoom(Fault fault);

extern const std::string tempPath;
bool isInTemp(const std::string& path);
// What a path belongs to: "settings", "snapshot", "temp", "data", or the path itself.
std::string kindOf(const std::string& path);

// Breaks the n-th call that it is told of, or all calls from that on; with a full disk of those
// that take room.
class Saboteur {
 public:
  Saboteur(Fault fault, int nth, Way way = Way::slowMedium)
      : fault_(fault), way_(way), left_(nth) {}

  void seeDisk(const DiskCall& call);
  int seeArchives(const ScriptedArchives::Call& call);

  bool hasBroken() const { return left_ <= 0; }
  const std::string& broken() const { return broken_; }
  const std::string& brokenPath() const { return brokenPath_; }  // Empty: not the disk's.
  const std::string& kindOfBroken() const { return kind_; }

 private:
  bool isDue() { return hasBroken() ? goesOn(fault_) : --left_ == 0; }

  Fault fault_;
  Way way_;
  int left_;
  std::string broken_;
  std::string brokenPath_;
  std::string kind_;
};

extern Saboteur nothingBreaks;  // For runs in which all goes well.

}  // namespace quernstoke::sabotage
