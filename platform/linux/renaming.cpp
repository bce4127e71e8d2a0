#include "platform/linux/renaming.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace quernstoke {

int renameWithoutReplacing(int from, const char* oldName, int to, const char* newName) {
  const int result = ::renameat2(from, oldName, to, newName, RENAME_NOREPLACE);
  if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
  return renameByLink(from, oldName, to, newName);
}

int renameByLink(int from, const char* oldName, int to, const char* newName) {
  if (::linkat(from, oldName, to, newName, 0) != 0) return -1;
  if (::unlinkat(from, oldName, 0) == 0) return 0;
  const int error = errno;
  ::unlinkat(to, newName, 0);
  errno = error;
  return -1;
}

}  // namespace quernstoke
