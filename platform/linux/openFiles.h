#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fileSystem.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/passedOver.h"

namespace quernstoke {

// The numbered open files. Each has its position of its own, so that moving it costs nothing. A
// number that is not in use fails with an invalid procedure call.
class OpenFiles {
 public:
  explicit OpenFiles(FileTally& tally) : tally_(tally) {}
  ~OpenFiles();
  OpenFiles(const OpenFiles&) = delete;
  OpenFiles& operator=(const OpenFiles&) = delete;

  // Takes the descriptor over under the smallest free number. The path serves the tally.
  FileNumber add(Descriptor descriptor, OpenMode mode, std::string_view linuxPath);

  std::size_t read(FileNumber file, std::span<char> into);
  void write(FileNumber file, std::string_view bytes);
  void seek(FileNumber file, std::int64_t position);
  std::int64_t length(FileNumber file) const;
  bool atEnd(FileNumber file);
  void close(FileNumber file);

 private:
  struct OpenFile {
    int descriptor = -1;
    OpenMode mode = OpenMode::input;
    bool hasPassedEnd = false;
    std::int64_t position = 0;
    std::int64_t knownLength = 0;
    std::string path;
    std::string window;  // Bytes from windowStart on that were read ahead for reads of one byte.
    std::int64_t windowStart = 0;
  };

  const OpenFile& at(FileNumber file) const;
  OpenFile& at(FileNumber file);
  std::size_t readAt(const OpenFile& file, std::int64_t position, std::span<char> into);
  std::size_t readByte(OpenFile& file, std::span<char> into);
  [[noreturn]] void failReading(const OpenFile& file, int error);

  FileTally& tally_;
  std::vector<OpenFile> files_;     // File number n is at n - 1.
  std::size_t firstMaybeFree_ = 0;  // All before it are in use.
};

}  // namespace quernstoke
