#pragma once

#include <cstdint>
#include <zip.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// The file of an archive, as libzip reads it. An archive of libzip stays open for as long as its
// directory is known; its file needs to be open only while something is read from it.
class ZipSource {
 public:
  explicit ZipSource(std::int64_t size) : size_(size) { zip_error_init(&error_); }
  ~ZipSource() { zip_error_fini(&error_); }
  ZipSource(const ZipSource&) = delete;
  ZipSource& operator=(const ZipSource&) = delete;

  // Opens the archive; null if there is none in the file. It must not outlive this.
  zip_t* openArchive();

  Descriptor file;  // The one to read, each time the same.

 private:
  static zip_int64_t answer(void* source, void* data, zip_uint64_t length,
                            zip_source_cmd_t command);
  zip_int64_t read(void* into, zip_uint64_t length);
  zip_int64_t describe(zip_stat_t& facts) const;
  zip_int64_t seek(void* target, zip_uint64_t length);

  std::int64_t size_;
  std::int64_t position_ = 0;
  zip_error_t error_{};
};

}  // namespace quernstoke
