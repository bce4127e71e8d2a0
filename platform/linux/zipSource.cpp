#include "platform/linux/zipSource.h"

#include <cerrno>
#include <unistd.h>

namespace quernstoke {

zip_t* ZipSource::openArchive() {
  if (size_ == 0) return nullptr;  // libzip would take it for an archive that is to be filled.
  zip_source_t* source = zip_source_function_create(&ZipSource::answer, this, &error_);
  if (source == nullptr) return nullptr;
  zip_t* const archive = zip_open_from_source(source, ZIP_RDONLY, &error_);
  if (archive == nullptr) zip_source_free(source);
  return archive;
}

zip_int64_t ZipSource::answer(void* source, void* data, zip_uint64_t length,
                              zip_source_cmd_t command) {
  ZipSource& self = *static_cast<ZipSource*>(source);
  switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_SUPPORTS, ZIP_SOURCE_OPEN, ZIP_SOURCE_READ,
                                            ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
                                            ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, -1);
    case ZIP_SOURCE_OPEN:
      self.position_ = 0;
      return 0;
    case ZIP_SOURCE_READ:
      return self.read(data, length);
    case ZIP_SOURCE_STAT:
      return self.describe(*static_cast<zip_stat_t*>(data));
    case ZIP_SOURCE_SEEK:
      return self.seek(data, length);
    case ZIP_SOURCE_TELL:
      return self.position_;
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&self.error_, data, length);
    default:
      return 0;
  }
}

zip_int64_t ZipSource::read(void* into, zip_uint64_t length) {
  for (;;) {
    const ssize_t got = ::pread(file.get(), into, length, position_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0)
      zip_error_set(&error_, ZIP_ER_READ, errno);
    else
      position_ += got;
    return got;
  }
}

zip_int64_t ZipSource::describe(zip_stat_t& facts) const {
  zip_stat_init(&facts);
  facts.size = static_cast<zip_uint64_t>(size_);
  facts.valid |= ZIP_STAT_SIZE;
  return sizeof facts;
}

zip_int64_t ZipSource::seek(void* target, zip_uint64_t length) {
  const zip_int64_t position =
      zip_source_seek_compute_offset(static_cast<zip_uint64_t>(position_),
                                     static_cast<zip_uint64_t>(size_), target, length, &error_);
  if (position < 0) return -1;
  position_ = position;
  return 0;
}

}  // namespace quernstoke
