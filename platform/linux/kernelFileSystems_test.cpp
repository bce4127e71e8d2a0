#include "platform/linux/kernelFileSystems.h"

#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sched.h>
#include <set>
#include <string>
#include <sys/mount.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

constexpr int mask = attributeDirectory | attributeHidden;

std::set<std::string> namesIn(LinuxFileSystem& files, const std::string& directory) {
  std::set<std::string> names;
  const auto listing = files.list(directory, mask);
  while (listing->next())
    names.emplace(listing->name());
  return names;
}

bool isKernelDirectory(const char* path) {
  struct statfs facts;
  return ::statfs(path, &facts) == 0 && isKernelFileSystem(facts.f_type);
}

// Runs in a child process with mounts of its own: 0 when a mounted proc is passed over and counted
// while a mounted tmpfs is given out, 1 when not, 2 when it may not mount.
int lookAtMounts(const TemporaryTree& tree) {
  const auto mountAt = [&](const char* type, const char* where) {
    return ::mount(type, tree.path(where).c_str(), type, 0, nullptr) == 0;
  };
  if (::unshare(CLONE_NEWNS) != 0) return 2;
  if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return 2;
  if (!mountAt("proc", "kernel") || !mountAt("tmpfs", "people")) return 2;
  LinuxFileSystem files{DriveTable()};
  const bool asMeant =
      namesIn(files, tree.programPath()) == std::set<std::string>{".", "..", "people", "plain"} &&
      files.passedOver().specials == 1;
  return asMeant ? 0 : 1;
}

TEST(KernelFileSystems, AreToldByTheirMagicNumber) {
  EXPECT_TRUE(isKernelFileSystem(PROC_SUPER_MAGIC));
  EXPECT_TRUE(isKernelFileSystem(SYSFS_MAGIC));
  EXPECT_TRUE(isKernelFileSystem(CGROUP2_SUPER_MAGIC));
  EXPECT_TRUE(isKernelFileSystem(static_cast<int>(BPF_FS_MAGIC)));  // Where it is a signed 32 bits.
  EXPECT_FALSE(isKernelFileSystem(TMPFS_MAGIC));
  EXPECT_FALSE(isKernelFileSystem(EXT4_SUPER_MAGIC));
}

TEST(KernelFileSystems, AreNotListedInTheRoot) {
  if (!isKernelDirectory("/proc")) GTEST_SKIP() << "no proc";
  LinuxFileSystem files{DriveTable()};
  const std::set<std::string> names = namesIn(files, "C:\\");
  EXPECT_FALSE(names.contains("proc"));
  EXPECT_EQ(isKernelDirectory("/sys"), access("/sys", F_OK) == 0 && !names.contains("sys"));
  EXPECT_TRUE(names.contains("tmp") || access("/tmp", F_OK) != 0);
  EXPECT_GE(files.passedOver().specials, 1);
}

TEST(KernelFileSystems, AreReadWhenSomebodyNamesOne) {
  if (!isKernelDirectory("/proc")) GTEST_SKIP() << "no proc";
  LinuxFileSystem files{DriveTable()};
  EXPECT_TRUE(namesIn(files, "C:\\proc").contains("version"));
}

TEST(KernelFileSystems, ArePassedOverWhereverTheyAreMounted) {
  const TemporaryTree tree;
  for (const char* name : {"kernel", "people", "plain"})
    tree.directory(name);
  const pid_t child = ::fork();
  if (child == 0) ::_exit(lookAtMounts(tree));
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == 2) GTEST_SKIP() << "may not mount";
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace quernstoke
