#include "testing/scriptedArchives.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "testing/memoryFileSystem.h"

namespace quernstoke {

namespace {

// Is gone from the disk at the end of its life.
struct WorkingFile {
  MemoryFileSystem& disk;
  std::string path;
  FileNumber file = 0;

  void close() { disk.close(std::exchange(file, 0)); }
  ~WorkingFile() {
    try {
      if (file != 0) close();
    } catch (const std::exception&) {
    }
    if (disk.exists(path)) disk.erase(path);
  }
};

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
  const std::vector<ScriptedEntry>& entries = contents[options.lpszZipFN];
  const std::string name = withoutEscapedBrackets(escaped);
  const auto isMeant = [&](const ScriptedEntry& entry) { return entry.name == name; };
  if (std::ranges::count_if(entries, isMeant) != 1) {
    callbacks.print("caution: filename not matched:  " + escaped + "\n");
    return archiveNoMatchingEntry;
  }
  const ScriptedEntry& entry = *std::ranges::find_if(entries, isMeant);
  std::array<char, 16> password{};
  if (entry.encrypted && callbacks.password(password) != 0) {
    callbacks.print("   skipping: " + entry.name + "  incorrect password\n");
    return archiveBadPassword;
  }
  return write(entry, options.lpszExtractDir, callbacks);
}

// As the real library, which writes a file under another name until it is whole.
int ScriptedArchives::write(const ScriptedEntry& entry, const std::string& directory,
                            ArchiveCallbacks& callbacks) {
  const std::string bareName = entry.name.substr(entry.name.rfind('/') + 1);
  WorkingFile working{disk_, directory + "\\TMP-extracting"};
  try {
    working.file = disk_.open(working.path, OpenMode::output);
    disk_.write(working.file, entry.content);
    working.close();
  } catch (const Failure& failure) {
    callbacks.print("  error:  cannot create " + entry.name + ": " + failure.description + "\n");
    return archiveDiskFull;
  }
  disk_.file(directory + "\\" + bareName, entry.content);
  return archiveOk;
}

}  // namespace quernstoke
