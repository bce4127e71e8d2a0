#pragma once

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>

namespace quernstoke {

// While it lives, files can't grow beyond some bytes, as on a disk that is full.
class LimitedFileSize {
 public:
  explicit LimitedFileSize(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    if (::setrlimit(RLIMIT_FSIZE, &small) != 0) throw std::runtime_error("no limit on files");
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~LimitedFileSize() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  LimitedFileSize(const LimitedFileSize&) = delete;
  LimitedFileSize& operator=(const LimitedFileSize&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

}  // namespace quernstoke
