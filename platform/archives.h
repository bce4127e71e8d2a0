#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/dateTime.h"

namespace quernstoke {

// What one run of the archive library is to do. Every number is a switch, 0 or 1. Of these a
// library has to heed nvflag alone; the others say what the program always wants.
struct ArchiveOptions {
  std::int32_t ExtractOnlyNewer = 0;
  std::int32_t SpaceToUnderscore = 0;
  std::int32_t PromptToOverwrite = 0;
  std::int32_t fQuiet = 0;
  std::int32_t ncflag = 0;      // Write to standard output.
  std::int32_t ntflag = 0;      // Test.
  std::int32_t nvflag = 0;      // List.
  std::int32_t nfflag = 0;      // Freshen.
  std::int32_t nzflag = 0;      // Display the comment.
  std::int32_t ndflag = 0;      // Honour directories.
  std::int32_t noflag = 0;      // Overwrite.
  std::int32_t naflag = 0;      // Convert line ends.
  std::int32_t nZIflag = 0;     // Verbose.
  std::int32_t C_flag = 0;      // Letter case does not count.
  std::int32_t fPrivilege = 0;  // Restore privileges.
  std::string lpszZipFN;        // The archive's path.
  std::string lpszExtractDir;   // Where an extraction goes; empty for a listing.
};

// How much of an entry's name the catalogue takes, in characters.
constexpr std::size_t longestEntryName = 256;

// One entry, as a listing tells it. Seconds of the date are 0.
struct ArchiveEntry {
  std::string_view name;  // Forward slashes; a folder's name ends in one.
  std::uint64_t size = 0;
  std::uint64_t compressedSize = 0;
  CivilTime date;
  std::uint32_t crc = 0;
  bool encrypted = false;
};

enum class ReplaceAnswer : int { no = 100, yes = 102, cancel = 104 };

// What the library says and asks while it runs. None of these may fail.
class ArchiveCallbacks {
 public:
  virtual ~ArchiveCallbacks() = default;

  virtual void print(std::string_view bytes) = 0;
  virtual ReplaceAnswer replace(std::string_view name) = 0;
  // Fills the buffer with a password and a NUL and returns 0, or returns 1 for none.
  virtual int password(std::span<char> buffer) = 0;
  virtual void message(const ArchiveEntry& entry) = 0;
  virtual void service(std::string_view name) = 0;
};

// Return codes of the library. Any but the first is a failure.
enum ArchiveResult : int {
  archiveOk = 0,
  archiveDamaged = 3,
  archiveNotFound = 9,
  archiveNoMatchingEntry = 11,
  archiveDiskFull = 50,
  archiveBadPassword = 82,
};

// Reading of zip archives. Paths are the program's.
class Archives {
 public:
  virtual ~Archives() = default;

  // With nvflag lists the archive, else extracts the entries that are named. In a name, "[" and "]"
  // have a backslash in front, and letter case counts. A name that fits several entries, or that
  // several have in the catalogue, fits none: the content of one would pass for that of another.
  // An extraction writes a whole file into lpszExtractDir under the entry's bare name, in the place
  // of a file that is there, without a question and never through a link; or it fails and leaves
  // what was there as it was.
  virtual int singleEntryUnzip(std::span<const std::string> included, const ArchiveOptions& options,
                               ArchiveCallbacks& callbacks) = 0;
};

// The name of an entry as an extraction takes it, and back as it stands in the archive.
std::string withEscapedBrackets(std::string_view name);
std::string withoutEscapedBrackets(std::string_view name);

}  // namespace quernstoke
