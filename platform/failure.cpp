#include "platform/failure.h"

namespace quernstoke {

namespace {

const char* describe(FailureNumber number) {
  switch (number) {
    case FailureNumber::invalidProcedureCall:
      return "Invalid procedure call or argument";
    case FailureNumber::overflow:
      return "Overflow";
    case FailureNumber::outOfMemory:
      return "Out of memory";
    case FailureNumber::subscriptOutOfRange:
      return "Subscript out of range";
    case FailureNumber::divisionByZero:
      return "Division by zero";
    case FailureNumber::typeMismatch:
      return "Type mismatch";
    case FailureNumber::fileNotFound:
      return "File not found";
    case FailureNumber::fileAlreadyOpen:
      return "File already open";
    case FailureNumber::deviceError:
      return "Device I/O error";
    case FailureNumber::fileAlreadyExists:
      return "File already exists";
    case FailureNumber::diskFull:
      return "Disk full";
    case FailureNumber::inputPastEnd:
      return "Input past end of file";
    case FailureNumber::permissionDenied:
      return "Permission denied";
    case FailureNumber::pathFileAccess:
      return "Path/File access error";
    case FailureNumber::pathNotFound:
      return "Path not found";
    case FailureNumber::fileChanged:
      return "The file has changed since the scan";
  }
  return "Application-defined or object-defined error";
}

}  // namespace

Failure::Failure(FailureNumber what)
    : number(static_cast<int>(what)), description(describe(what)) {}

void fail(FailureNumber what) {
  throw Failure(what);
}

}  // namespace quernstoke
