#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/archives.h"
#include "platform/dateTime.h"

namespace quernstoke {

class MemoryFileSystem;

struct ScriptedEntry {
  std::string name;
  std::string content;
  CivilTime date = {2004, 5, 6, 7, 8, 0};
  bool encrypted = false;
  std::uint64_t claimedSize = 0;  // What a listing tells; that of the content unless set.
};

// Archives by their path; what is extracted goes to the disk in memory, which can fail at it. Keeps
// what was asked.
class ScriptedArchives : public Archives {
 public:
  explicit ScriptedArchives(MemoryFileSystem& disk) : disk_(disk) {}

  struct Call {
    std::vector<std::string> included;
    ArchiveOptions options;
  };
  std::map<std::string, std::vector<ScriptedEntry>> contents;
  std::vector<Call> calls;
  // Sees each call first. Any result but archiveOk is the call's, and nothing else happens.
  std::function<int(const Call&)> before;
  std::function<void(ArchiveCallbacks&)> duringCall;  // What the library asks in each call.

  int singleEntryUnzip(std::span<const std::string> included, const ArchiveOptions& options,
                       ArchiveCallbacks& callbacks) override;

 private:
  int extract(const std::string& escaped, const ArchiveOptions& options,
              ArchiveCallbacks& callbacks);

  int write(const ScriptedEntry& entry, const std::string& directory, ArchiveCallbacks& callbacks);

  MemoryFileSystem& disk_;
};

}  // namespace quernstoke
