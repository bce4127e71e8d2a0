#include "console/homeDirectory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "console/exitStatus.h"

namespace quernstoke {

namespace {

// Nothing for a variable that is set to nothing.
std::optional<std::string> environment(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

}  // namespace

std::string existingDirectory(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  if (!error && !std::filesystem::is_directory(real, error) && !error)
    error = std::make_error_code(std::errc::not_a_directory);
  if (error) throw ScanError(ExitStatus::notThere, "directory '" + path + "': " + error.message());
  return real.native();
}

std::string executableDirectory() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().native();
}

std::string homeChosen(const std::optional<std::string>& chosen) {
  if (chosen) return *chosen;
  return environment("QUERNSTOKE_HOME").value_or(executableDirectory());
}

std::string programHome(const std::optional<std::string>& chosen) {
  return existingDirectory(homeChosen(chosen));
}

ScratchHome::ScratchHome(const std::optional<std::string>& chosen)
    : path_(existingDirectory(chosen ? *chosen : environment("TMPDIR").value_or("/tmp"))) {
  if (!path_.ends_with('/')) path_ += '/';
  path_ += "quernstoke-scan.XXXXXX";
  if (::mkdtemp(path_.data()) == nullptr)
    throw ScanError(ExitStatus::failed, path_ + ": " + std::strerror(errno));
}

ScratchHome::~ScratchHome() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quernstoke
