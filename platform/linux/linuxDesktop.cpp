#include "platform/linux/linuxDesktop.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/letterCase.h"
#include "platform/linux/pathLookup.h"
#include "platform/linux/userDirectories.h"

namespace quernstoke {

namespace {

constexpr std::int32_t documentsId = 5;

// An address has a scheme of two or more letters before its first colon; a drive has one letter,
// and a name has no colon.
bool isAddress(std::string_view file) {
  const std::size_t colon = file.find(':');
  return colon != std::string_view::npos && colon >= 2 &&
         file.find_first_not_of(
             "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.") == colon;
}

bool isOpening(std::string_view operation) {
  return operation.empty() || sameIgnoringCase(operation, "open") ||
         sameIgnoringCase(operation, "explore");
}

bool isRelative(std::string_view path) {
  return !path.starts_with('\\') && !path.starts_with('/') && !(path.size() >= 2 && path[1] == ':');
}

// Quotes around a path, which can hold none itself.
std::string_view withoutQuotes(std::string_view path) {
  const bool isQuoted = path.size() >= 2 && path.starts_with('"') && path.ends_with('"');
  return isQuoted ? path.substr(1, path.size() - 2) : path;
}

std::int32_t answerForMissing(int error) {
  if (error == ENOENT) return shellFileNotFound;
  return error == EACCES ? shellAccessDenied : shellPathNotFound;
}

std::int32_t answerForSpawn(int error) {
  return error == ENOMEM || error == EAGAIN ? shellOutOfMemory : shellNoAssociation;
}

std::int32_t answerForStatus(int status) {
  constexpr int fileMissing = 2;
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return shellSuccess;
  return WIFEXITED(status) && WEXITSTATUS(status) == fileMissing ? shellFileNotFound
                                                                 : shellNoAssociation;
}

// How the opener is started: in a session of its own, so that Ctrl-C in the terminal of this
// program doesn't end what the person has opened, and with signals as a new program expects them.
class SpawnSettings {
 public:
  explicit SpawnSettings(const std::string& directory) {
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_init(&actions);
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setflags(&attributes,
                               POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    if (!directory.empty()) ::posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
  }
  ~SpawnSettings() {
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  posix_spawnattr_t attributes;
  posix_spawn_file_actions_t actions;
};

// Waits a while for a child. Returns waitpid's answer: 0 when it is still running.
pid_t waitShortly(pid_t child, int& status) {
  constexpr auto patience = std::chrono::seconds(1);
  constexpr auto pause = std::chrono::milliseconds(10);
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    const pid_t ended = ::waitpid(child, &status, WNOHANG);
    if (ended != 0 || std::chrono::steady_clock::now() >= end) return ended;
    std::this_thread::sleep_for(pause);
  }
}

}  // namespace

LinuxDesktop::LinuxDesktop(DriveTable drives) : drives_(std::move(drives)) {}

LinuxDesktop::~LinuxDesktop() {
  reapEnded();
}

std::int32_t LinuxDesktop::shellExecute(const ShellRequest& request) {
  reapEnded();
  if (!isOpening(request.operation)) return shellNoAssociation;
  try {
    std::string directory;
    if (!request.directory.empty()) {
      const Place place = locate(drives_.linuxPath(request.directory));
      if (!place.exists) return shellPathNotFound;
      directory = std::filesystem::absolute(place.path);
    }
    if (isAddress(request.file)) return start(std::string(request.file), directory);
    const std::string_view named = withoutQuotes(request.file);
    std::string file = drives_.linuxPath(named);
    if (!directory.empty() && isRelative(named)) file = directory + '/' + file;
    const Place place = locate(file);
    if (!place.exists) return answerForMissing(place.error);
    return start(std::filesystem::absolute(place.path), directory);
  } catch (const Failure&) {
    return shellPathNotFound;
  } catch (const std::filesystem::filesystem_error&) {  // The current directory has gone.
    return shellPathNotFound;
  }
}

std::int32_t LinuxDesktop::start(const std::string& target, const std::string& directory) {
  const SpawnSettings settings(directory);
  std::string program = "xdg-open";
  std::string argument = target;
  char* const arguments[] = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, program.c_str(), &settings.actions, &settings.attributes,
                                   arguments, environ);
  if (error != 0) return answerForSpawn(error);
  int status = 0;
  const pid_t ended = waitShortly(child, status);
  if (ended == child) return answerForStatus(status);
  // Still running, and so has found what to do.
  if (ended == 0) running_.push_back(child);
  return shellSuccess;
}

void LinuxDesktop::reapEnded() {
  std::erase_if(running_, [](pid_t child) { return ::waitpid(child, nullptr, WNOHANG) != 0; });
}

std::optional<std::string> LinuxDesktop::specialFolder(std::int32_t id) {
  if (id != documentsId) return std::nullopt;
  const std::optional<std::string> documents = documentsDirectory();
  if (!documents) return std::nullopt;
  return drives_.programPath(*documents);
}

std::optional<DiskSpace> LinuxDesktop::diskSpace(std::string_view rootPath) {
  constexpr std::int64_t sector = 512;
  try {
    struct statvfs facts;
    if (::statvfs(drives_.linuxPath(rootPath).c_str(), &facts) != 0) return std::nullopt;
    return DiskSpace{static_cast<std::int64_t>(facts.f_frsize) / sector, sector,
                     static_cast<std::int64_t>(facts.f_bavail),
                     static_cast<std::int64_t>(facts.f_blocks)};
  } catch (const Failure&) {
    return std::nullopt;
  }
}

std::vector<std::string> LinuxDesktop::drives() {
  std::vector<std::string> drives;
  for (const char letter : drives_.letters()) {
    const std::string drive{letter, ':'};
    // A path without a drive is one of C.
    drives.insert(letter == 'C' ? drives.begin() : drives.end(),
                  drive + " [" + drives_.linuxPath(drive) + "]");
  }
  return drives;
}

}  // namespace quernstoke
