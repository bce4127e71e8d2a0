#include "console/homeDirectory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "console/exitStatus.h"
#include "platform/linux/environment.h"
#include "platform/linux/process.h"

namespace quernstoke {

std::string existingDirectory(const std::string& path) {
  try {
    return realDirectory(path);
  } catch (const std::runtime_error& error) {
    throw ScanError(ExitStatus::notThere, error.what());
  }
}

std::string homeChosen(const std::optional<std::string>& chosen) {
  return chosen ? *chosen : namedHome();
}

std::string programHome(const std::optional<std::string>& chosen) {
  return existingDirectory(homeChosen(chosen));
}

ScratchHome::ScratchHome(const std::optional<std::string>& chosen)
    : path_(existingDirectory(chosen ? *chosen : environmentVariable("TMPDIR").value_or("/tmp"))) {
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
