#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>

namespace quernstoke {

// What was met but not taken, for a report.
struct PassedOver {
  std::int64_t links = 0;
  std::int64_t specials = 0;    // Sockets, FIFOs, devices and mounted kernel file systems.
  std::int64_t tooLarge = 0;    // Files whose size was asked for and has more than 32 bits.
  std::int64_t unreadable = 0;  // Distinct directories, and files of the scan (sharedBinary).
};

// What a file system's listings and open files have counted so far.
struct FileTally {
  std::int64_t filesMet = 0;
  std::int64_t links = 0;
  std::int64_t specials = 0;
  std::int64_t tooLarge = 0;
  std::unordered_set<std::string> unreadable;  // Linux paths.
};

}  // namespace quernstoke
