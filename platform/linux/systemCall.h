#pragma once

#include <cerrno>

namespace quernstoke {

// Makes a system call, again after an interrupting signal. Returns its result, or the error as a
// negative number, which closing something on the way out can't overwrite as it can errno.
template <class Call>
int outcomeOf(Call call) {
  for (;;) {
    const int result = call();
    if (result >= 0) return result;
    if (errno != EINTR) return -errno;
  }
}

}  // namespace quernstoke
