#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// End in the ScanError of a file that can't be read or written, and of the reason or the system's
// error.
[[noreturn]] void failAt(const std::string& path, const std::string& reason);
[[noreturn]] void failAt(const std::string& path, int error);

// Where results go: a file, which is cut to nothing first, or standard output. What fails is a
// ScanError that names it.
class Output {
 public:
  explicit Output(const std::optional<std::string>& path);

  void write(std::string_view text);
  // To be called at the end. What is still kept is lost otherwise.
  void finish();

 private:
  void flush();

  std::string name_;
  Descriptor file_;  // Not open for standard output.
  int descriptor_;
  std::string kept_;
};

// Throws the ScanError that opening the file for output would end in, as far as can be told
// without touching it.
void requireWritable(const std::string& path);

}  // namespace quernstoke
