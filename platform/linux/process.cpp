#include "platform/linux/process.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "platform/linux/environment.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

namespace {

std::filesystem::path executable() {
  return std::filesystem::read_symlink("/proc/self/exe");
}

}  // namespace

std::string realDirectory(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  if (!error && !std::filesystem::is_directory(real, error) && !error)
    error = std::make_error_code(std::errc::not_a_directory);
  if (error) throw std::runtime_error("directory '" + path + "': " + error.message());
  return real.native();
}

std::string executableDirectory() {
  return executable().parent_path().native();
}

std::string namedHome() {
  return environmentVariable("QUERNSTOKE_HOME").value_or(executableDirectory());
}

std::string homeAsProgramPath(const std::string& home, const DriveTable& drives) {
  std::string path = drives.programPath(home);
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

std::string executableName() {
  return executable().filename().native();
}

std::string commandLine(int argc, const char* const* argv) {
  std::string text;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) text += ' ';
    text += argv[i];
  }
  return text;
}

}  // namespace quernstoke
