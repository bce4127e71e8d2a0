#include "console/output.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "console/exitStatus.h"
#include "platform/linux/systemCall.h"
#include "platform/linux/writeAll.h"

namespace quernstoke {

namespace {

constexpr std::size_t keptBytes = 65536;

std::string directoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

int openForOutput(const std::string& path) {
  constexpr mode_t permissions = 0666;
  const int outcome = outcomeOf(
      [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, permissions); });
  if (outcome < 0) failAt(path, -outcome);
  return outcome;
}

}  // namespace

void failAt(const std::string& path, const std::string& reason) {
  throw ScanError(ExitStatus::failed, path + ": " + reason);
}

void failAt(const std::string& path, int error) {
  failAt(path, std::strerror(error));
}

Output::Output(const std::optional<std::string>& path) : name_(path.value_or("standard output")) {
  if (path) file_ = Descriptor(openForOutput(*path));
  descriptor_ = path ? file_.get() : STDOUT_FILENO;
}

void Output::write(std::string_view text) {
  kept_ += text;
  if (kept_.size() >= keptBytes) flush();
}

void Output::finish() {
  flush();
  // Some file systems tell of a full disk only here.
  if (file_.isOpen() && ::close(file_.release()) != 0) failAt(name_, errno);
}

void Output::flush() {
  const int outcome = writeAll(descriptor_, kept_);
  kept_.clear();
  if (outcome < 0) failAt(name_, -outcome);
}

void requireWritable(const std::string& path) {
  struct stat facts;
  if (::stat(path.c_str(), &facts) == 0) {
    if (S_ISDIR(facts.st_mode)) failAt(path, EISDIR);
    if (::access(path.c_str(), W_OK) != 0) failAt(path, errno);
  } else if (errno != ENOENT || ::access(directoryOf(path).c_str(), W_OK | X_OK) != 0) {
    failAt(path, errno);
  }
}

}  // namespace quernstoke
