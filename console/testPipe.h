#pragma once

#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// A pipe that a test writes into and then reads; it holds at least 64 KiB.
class TestPipe {
 public:
  TestPipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe for the test");
    read_.reset(ends[0]);
    write_.reset(ends[1]);
  }

  int descriptor() const { return write_.get(); }

  // All that was written. Nothing can be written afterwards.
  std::string text() {
    write_.reset();
    std::string all;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(read_.get(), buffer, sizeof buffer)) > 0;)
      all.append(buffer, static_cast<std::size_t>(count));
    return all;
  }

 private:
  Descriptor read_;
  Descriptor write_;
};

}  // namespace quernstoke
