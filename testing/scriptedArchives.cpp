#include "testing/scriptedArchives.h"

#include <algorithm>
#include <array>

#include "testing/memoryFileSystem.h"

namespace quernstoke {

namespace {

std::uint64_t sizeOf(const ScriptedEntry& entry) {
  return entry.claimedSize != 0 ? entry.claimedSize : entry.content.size();
}

}  // namespace

int ScriptedArchives::singleEntryUnzip(std::span<const std::string> included,
                                       const ArchiveOptions& options, ArchiveCallbacks& callbacks) {
  calls.push_back({{included.begin(), included.end()}, options});
  const int told = before ? before(calls.back()) : static_cast<int>(archiveOk);
  if (told != archiveOk) return told;
  if (duringCall) duringCall(callbacks);
  if (!contents.contains(options.lpszZipFN)) return archiveNotFound;
  if (options.nvflag == 0) return extract(included.front(), options, callbacks);
  for (const ScriptedEntry& entry : contents[options.lpszZipFN])
    callbacks.message({entry.name, sizeOf(entry), 0, entry.date, 0, entry.encrypted});
  return archiveOk;
}

int ScriptedArchives::extract(const std::string& escaped, const ArchiveOptions& options,
                              ArchiveCallbacks& callbacks) {
  for (const ScriptedEntry& entry : contents[options.lpszZipFN]) {
    if (entry.name != withoutEscapedBrackets(escaped)) continue;
    std::array<char, 16> password{};
    if (entry.encrypted && callbacks.password(password) != 0) {
      callbacks.print("   skipping: " + entry.name + "  incorrect password\n");
      return archiveBadPassword;
    }
    const std::string bareName = entry.name.substr(entry.name.rfind('/') + 1);
    disk_.file(options.lpszExtractDir + "\\" + bareName, entry.content);
    return archiveOk;
  }
  callbacks.print("caution: filename not matched:  " + escaped + "\n");
  return archiveNoMatchingEntry;
}

}  // namespace quernstoke
