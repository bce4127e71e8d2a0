#include "platform/linux/openFiles.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/systemFailure.h"

namespace quernstoke {

namespace {

bool isWritten(OpenMode mode) {
  return mode == OpenMode::output || mode == OpenMode::binary;
}

constexpr std::size_t windowSize = 4096;

}  // namespace

OpenFiles::~OpenFiles() {
  for (const OpenFile& file : files_)
    if (file.descriptor >= 0) ::close(file.descriptor);
}

FileNumber OpenFiles::add(Descriptor descriptor, OpenMode mode, std::string_view linuxPath) {
  while (firstMaybeFree_ < files_.size() && files_[firstMaybeFree_].descriptor >= 0)
    ++firstMaybeFree_;
  if (firstMaybeFree_ >= std::numeric_limits<FileNumber>::max())
    fail(FailureNumber::pathFileAccess);
  if (firstMaybeFree_ == files_.size()) files_.emplace_back();
  OpenFile& file = files_[firstMaybeFree_];
  // Member by member: the path's memory is used again.
  file.path = linuxPath;
  file.mode = mode;
  file.hasPassedEnd = false;
  file.position = 0;
  file.knownLength = 0;
  file.window.clear();
  file.descriptor = descriptor.release();
  ++firstMaybeFree_;
  return static_cast<FileNumber>(firstMaybeFree_);
}

const OpenFiles::OpenFile& OpenFiles::at(FileNumber file) const {
  if (file < 1 || static_cast<std::size_t>(file) > files_.size())
    fail(FailureNumber::invalidProcedureCall);
  const OpenFile& found = files_[static_cast<std::size_t>(file) - 1];
  if (found.descriptor < 0) fail(FailureNumber::invalidProcedureCall);
  return found;
}

OpenFiles::OpenFile& OpenFiles::at(FileNumber file) {
  return const_cast<OpenFile&>(static_cast<const OpenFiles&>(*this).at(file));
}

std::size_t OpenFiles::read(FileNumber number, std::span<char> into) {
  OpenFile& file = at(number);
  // The system calls so far-off a position an error, but it is merely past the end of
  // every file.
  const auto most = static_cast<std::int64_t>(std::max(into.size(), windowSize));
  if (file.position > std::numeric_limits<std::int64_t>::max() - most) {
    file.hasPassedEnd = true;
    return 0;
  }
  const std::size_t done =
      into.size() == 1 ? readByte(file, into) : readAt(file, file.position, into);
  file.position += static_cast<std::int64_t>(done);
  file.hasPassedEnd = done < into.size();
  return done;
}

// One call: a regular file gives less than asked only at its end.
std::size_t OpenFiles::readAt(const OpenFile& file, std::int64_t position, std::span<char> into) {
  for (;;) {
    const ssize_t length =
        ::pread(file.descriptor, into.data(), into.size(), static_cast<off_t>(position));
    if (length >= 0) return static_cast<std::size_t>(length);
    if (errno != EINTR) failReading(file, errno);
  }
}

// Records are read byte by byte, which must not cost a call each.
std::size_t OpenFiles::readByte(OpenFile& file, std::span<char> into) {
  const auto held = [&]() -> std::int64_t {
    const std::int64_t skipped = file.position - file.windowStart;
    const auto size = static_cast<std::int64_t>(file.window.size());
    return skipped < 0 || skipped > size ? 0 : size - skipped;
  };
  if (held() < static_cast<std::int64_t>(into.size())) {
    file.windowStart = file.position;
    file.window.resize(windowSize);
    file.window.resize(readAt(file, file.position, file.window));
  }
  const auto done = std::min(into.size(), static_cast<std::size_t>(held()));
  file.window.copy(into.data(), done, static_cast<std::size_t>(file.position - file.windowStart));
  return done;
}

void OpenFiles::failReading(const OpenFile& file, int error) {
  if (file.mode == OpenMode::sharedBinary) tally_.unreadable.insert(file.path);
  failWith(error, Subject::file);
}

void OpenFiles::write(FileNumber number, std::string_view bytes) {
  OpenFile& file = at(number);
  file.window.clear();
  while (!bytes.empty()) {
    const ssize_t length = ::pwrite(file.descriptor, bytes.data(), bytes.size(), file.position);
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) failWith(errno, Subject::file);
    file.position += length;
    bytes.remove_prefix(static_cast<std::size_t>(length));
  }
}

void OpenFiles::seek(FileNumber number, std::int64_t position) {
  OpenFile& file = at(number);
  if (position < 0) fail(FailureNumber::invalidProcedureCall);
  file.position = position;
  file.hasPassedEnd = false;
}

std::int64_t OpenFiles::length(FileNumber number) const {
  struct stat facts;
  if (::fstat(at(number).descriptor, &facts) != 0) failWith(errno, Subject::file);
  return facts.st_size;
}

bool OpenFiles::atEnd(FileNumber number) {
  OpenFile& file = at(number);
  if (file.mode != OpenMode::input) return file.hasPassedEnd;
  // Asked once a line, so the system is asked only where the answer may change.
  if (file.position >= file.knownLength) file.knownLength = length(number);
  return file.position >= file.knownLength;
}

void OpenFiles::close(FileNumber number) {
  OpenFile& file = at(number);
  const int descriptor = file.descriptor;
  file.descriptor = -1;
  firstMaybeFree_ = std::min(firstMaybeFree_, static_cast<std::size_t>(number) - 1);
  // Some file systems report only now that what was written had no room.
  if (::close(descriptor) != 0 && errno != EINTR && isWritten(file.mode))
    failWith(errno, Subject::file);
}

}  // namespace quernstoke
