#pragma once

#include <exception>
#include <string>

namespace quernstoke {

enum class FailureNumber {
  invalidProcedureCall = 5,
  overflow = 6,
  outOfMemory = 7,
  subscriptOutOfRange = 9,
  divisionByZero = 11,
  typeMismatch = 13,
  fileNotFound = 53,
  fileAlreadyOpen = 55,
  deviceError = 57,
  fileAlreadyExists = 58,
  diskFull = 61,
  inputPastEnd = 62,
  permissionDenied = 70,
  pathFileAccess = 75,
  pathNotFound = 76,
  fileChanged = 1001,  // A number of our own.
};

// The one exception of the program: what a statement that could not be carried out reports.
struct Failure : std::exception {
  explicit Failure(FailureNumber what);

  const char* what() const noexcept override { return description.c_str(); }
  bool is(FailureNumber which) const { return number == static_cast<int>(which); }
  // Whether there is nothing under the path.
  bool isAbsent() const {
    return is(FailureNumber::fileNotFound) || is(FailureNumber::pathNotFound);
  }

  int number;
  std::string description;  // The customary English words for the number.
};

[[noreturn]] void fail(FailureNumber what);

}  // namespace quernstoke
