#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace quernstoke {

// Ends the process, which the fuzzer takes for a find, unless what must hold does.
inline void require(bool holds, const std::string& what) {
  if (holds) return;
  std::fprintf(stderr, "Not so: %s\n", what.c_str());
  std::abort();
}

}  // namespace quernstoke
