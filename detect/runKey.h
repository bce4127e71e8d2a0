#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// How a file of the sorted catalogue stands to the file before it.
struct RunStep {
  bool same = false;  // It has the same key.
  bool skip = false;  // It takes no part: it is removed, or has no match number.
};

// Walks the sorted catalogue and tells where the runs of equal keys end. Keys: "NAME", "SIZE",
// "MATCHNUM" and "DIRECTORY"; by any other, all files are one run.
class RunKey {
 public:
  explicit RunKey(std::string_view key) : key_(key) {}

  // REQUIRES: called for the files in their order.
  RunStep next(Int32 file);

 private:
  std::string_view key_;
  Int32 lastNumber_ = -1;
  std::string_view lastText_;
};

}  // namespace quernstoke
