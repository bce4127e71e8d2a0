#pragma once

struct statx;

namespace quernstoke {

// Whether the entry `name` of an open directory, with facts that statx gave, is where one of the
// kernel's pseudo file systems (proc, sysfs, cgroup, ...) is mounted.
bool isKernelMount(int directory, const char* name, const struct ::statx& facts);

// Whether a file system with this magic number shows the kernel's state instead of stored files.
bool isKernelFileSystem(long magic);

}  // namespace quernstoke
