#pragma once

#include <filesystem>
#include <unistd.h>

#include "platform/linux/temporaryTree.h"

namespace quernstoke {

// Lets a test that runs as root meet refused permissions: acts as an ordinary user, to whom the
// tree is given, until it goes. An ordinary user stays who they are.
class WithoutPrivileges {
 public:
  explicit WithoutPrivileges(const TemporaryTree& tree) {
    if (::geteuid() != 0) return;
    give(tree.root());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.root()))
      give(entry.path());
    changed_ = ::seteuid(ordinaryUser) == 0;
  }
  ~WithoutPrivileges() {
    if (changed_ && ::seteuid(0) != 0) std::abort();
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

  bool areInForce() const { return ::geteuid() != 0; }

 private:
  static constexpr uid_t ordinaryUser = 65534;

  static void give(const std::filesystem::path& path) {
    if (::lchown(path.c_str(), ordinaryUser, static_cast<gid_t>(-1)) != 0)
      throw std::runtime_error("cannot give the tree away");
  }

  bool changed_ = false;
};

}  // namespace quernstoke
