#include "platform/linux/kernelFileSystems.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

namespace {

// Those that the system's headers don't name.
constexpr std::uint32_t configfsMagic = 0x62656570;
constexpr std::uint32_t fusectlMagic = 0x65735543;
constexpr std::uint32_t mqueueMagic = 0x19800202;
constexpr std::uint32_t rpcPipefsMagic = 0x67596969;
constexpr std::uint32_t nfsdMagic = 0x6e667364;

// Not among them are tmpfs, which holds people's files, and autofs, which turns into whatever is
// mounted on demand.
constexpr auto kernelMagics = std::to_array<std::uint32_t>({
    PROC_SUPER_MAGIC, SYSFS_MAGIC,          CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC,
    DEBUGFS_MAGIC,    TRACEFS_MAGIC,        SECURITYFS_MAGIC,   PSTOREFS_MAGIC,
    BPF_FS_MAGIC,     configfsMagic,        DEVPTS_SUPER_MAGIC, mqueueMagic,
    HUGETLBFS_MAGIC,  BINFMTFS_MAGIC,       fusectlMagic,       EFIVARFS_MAGIC,
    SELINUX_MAGIC,    SMACK_MAGIC,          NSFS_MAGIC,         rpcPipefsMagic,
    nfsdMagic,        RDTGROUP_SUPER_MAGIC,
});

bool isOnOtherDevice(int directory, const struct statx& facts) {
  struct statx own;
  return ::statx(directory, "", AT_EMPTY_PATH, 0, &own) == 0 &&
         (own.stx_dev_major != facts.stx_dev_major || own.stx_dev_minor != facts.stx_dev_minor);
}

bool isMountPoint(int directory, const struct statx& facts) {
  // Kernels before 5.8 don't tell; there a change of the device has to do.
  if ((facts.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) == 0)
    return isOnOtherDevice(directory, facts);
  return (facts.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

}  // namespace

bool isKernelMount(int directory, const char* name, const struct statx& facts) {
  if (!isMountPoint(directory, facts)) return false;
  const Descriptor entry(::openat(directory, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
  struct statfs system;
  return entry.isOpen() && ::fstatfs(entry.get(), &system) == 0 &&
         isKernelFileSystem(system.f_type);
}

bool isKernelFileSystem(long magic) {
  return std::ranges::find(kernelMagics, static_cast<std::uint32_t>(magic)) != kernelMagics.end();
}

}  // namespace quernstoke
