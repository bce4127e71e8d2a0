#pragma once

#include <filesystem>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace quernstoke {

// A disk as small as its options say, mounted on a directory for as long as it lives, where the
// system lets this process do so. No other process sees it.
class SmallDisk {
 public:
  SmallDisk(const std::string& directory, const std::string& type, const std::string& options)
      : directory_(directory) {
    std::filesystem::create_directories(directory);
    mounted_ =
        isApart() && ::mount("none", directory.c_str(), type.c_str(), 0, options.c_str()) == 0;
  }
  ~SmallDisk() {
    if (mounted_) ::umount2(directory_.c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool isMounted() const { return mounted_; }

 private:
  // Gives this process mounts of its own.
  static bool isApart() {
    static const bool apart = ::unshare(CLONE_NEWNS) == 0 &&
                              ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return apart;
  }

  std::string directory_;
  bool mounted_ = false;
};

}  // namespace quernstoke
