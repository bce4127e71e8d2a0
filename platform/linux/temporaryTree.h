#pragma once

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <system_error>

#include "platform/linux/pathMapping.h"

namespace quernstoke {

// A new directory for one test, removed with all that it holds. Paths given to it are relative
// Linux paths; directories on the way are made.
class TemporaryTree {
 public:
  TemporaryTree() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quernstoke.XXXXXX").native();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory");
    root_ = pattern;
  }
  ~TemporaryTree() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  TemporaryTree(const TemporaryTree&) = delete;
  TemporaryTree& operator=(const TemporaryTree&) = delete;

  const std::string& root() const { return root_; }
  std::string path(std::string_view relative) const { return root_ + '/' + std::string(relative); }
  std::string programPath(std::string_view relative = {}) const {
    return DriveTable().programPath(relative.empty() ? root_ : path(relative));
  }

  void directory(std::string_view relative) const {
    std::filesystem::create_directories(path(relative));
  }
  void file(std::string_view relative, std::string_view content = {}) const {
    makeParent(relative);
    std::ofstream stream(path(relative), std::ios::binary);
    stream << content;
    if (!stream.flush()) throw std::runtime_error("cannot write a file of the test");
  }
  void link(std::string_view relative, std::string_view target) const {
    makeParent(relative);
    std::filesystem::create_symlink(target, path(relative));
  }
  void fifo(std::string_view relative) const {
    makeParent(relative);
    if (::mkfifo(path(relative).c_str(), 0600) != 0) throw std::runtime_error("no FIFO");
  }
  void setMode(std::string_view relative, mode_t mode) const {
    if (::chmod(path(relative).c_str(), mode) != 0) throw std::runtime_error("no such mode");
  }

  // Until the clock of the file system has moved on since the file was changed.
  void waitForTheNextTick(std::string_view relative) const {
    struct stat facts {};
    if (::lstat(path(relative).c_str(), &facts) != 0) throw std::runtime_error("no such file");
    timespec now{};
    do {
      ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    } while (now.tv_sec == facts.st_ctim.tv_sec && now.tv_nsec <= facts.st_ctim.tv_nsec);
  }

  bool exists(std::string_view relative) const {
    return std::filesystem::exists(std::filesystem::symlink_status(path(relative)));
  }
  std::set<std::string> names(std::string_view relative = {}) const {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path(relative)))
      found.insert(entry.path().filename());
    return found;
  }
  std::string content(std::string_view relative) const {
    std::ifstream stream(path(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

 private:
  void makeParent(std::string_view relative) const {
    std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
  }

  std::string root_;
};

}  // namespace quernstoke
