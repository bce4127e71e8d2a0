#include "platform/linux/openFiles.h"

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
  // The system calls so far a position an error, but it is merely past every file's end.
  if (file.position >
      std::numeric_limits<std::int64_t>::max() - static_cast<std::int64_t>(into.size())) {
    file.hasPassedEnd = true;
    return 0;
  }
  // One call: a regular file gives less than asked only at its end.
  ssize_t length = 0;
  do {
    length = ::pread(file.descriptor, into.data(), into.size(), static_cast<off_t>(file.position));
  } while (length < 0 && errno == EINTR);
  if (length < 0) failReading(file, errno);
  const auto done = static_cast<std::size_t>(length);
  file.position += length;
  file.hasPassedEnd = done < into.size();
  return done;
}

void OpenFiles::failReading(const OpenFile& file, int error) {
  if (file.mode == OpenMode::sharedBinary) tally_.unreadable.insert(file.path);
  failWith(error, Subject::file);
}

void OpenFiles::write(FileNumber number, std::string_view bytes) {
  OpenFile& file = at(number);
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
