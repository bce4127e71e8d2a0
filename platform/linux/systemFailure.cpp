#include "platform/linux/systemFailure.h"

#include <cerrno>

namespace quernstoke {

FailureNumber failureFor(int error, Subject subject) {
  const bool ofFile = subject == Subject::file;
  switch (error) {
    case ENOENT:
      return ofFile ? FailureNumber::fileNotFound : FailureNumber::pathNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
      return FailureNumber::pathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY:
      return ofFile ? FailureNumber::permissionDenied : FailureNumber::pathFileAccess;
    case EEXIST:
      return ofFile ? FailureNumber::fileAlreadyExists : FailureNumber::pathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FailureNumber::diskFull;
    case EIO:
    case EREMOTEIO:
    case ESTALE:
    case ENODEV:
    case ENOTCONN:
    case ETIMEDOUT:
      return FailureNumber::deviceError;
    case ENOMEM:
      return FailureNumber::outOfMemory;
    default:
      return FailureNumber::pathFileAccess;
  }
}

void failWith(int error, Subject subject) {
  fail(failureFor(error, subject));
}

bool saysAbsent(int error) {
  return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

}  // namespace quernstoke
