#pragma once

#include <chrono>
#include <cstdint>

#include "platform/linux/linuxFileSystem.h"

namespace quernstoke {

// What the file system has counted since the scan began: before that it has listed directories of
// the program's own.
class ScanTally {
 public:
  explicit ScanTally(const LinuxFileSystem& files) : files_(files) { begin(); }

  void begin();

  std::int64_t filesMet() const { return files_.filesMet() - filesMetBefore_; }
  PassedOver passedOver() const;
  double seconds() const;

 private:
  const LinuxFileSystem& files_;
  std::int64_t filesMetBefore_ = 0;
  PassedOver passedOverBefore_;
  std::chrono::steady_clock::time_point begun_;
};

}  // namespace quernstoke
