#include "platform/failure.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(Failure, CarriesItsNumberAndItsWords) {
  const std::pair<FailureNumber, const char*> expected[] = {
      {FailureNumber::invalidProcedureCall, "Invalid procedure call or argument"},
      {FailureNumber::overflow, "Overflow"},
      {FailureNumber::outOfMemory, "Out of memory"},
      {FailureNumber::subscriptOutOfRange, "Subscript out of range"},
      {FailureNumber::divisionByZero, "Division by zero"},
      {FailureNumber::typeMismatch, "Type mismatch"},
      {FailureNumber::fileNotFound, "File not found"},
      {FailureNumber::fileAlreadyOpen, "File already open"},
      {FailureNumber::deviceError, "Device I/O error"},
      {FailureNumber::fileAlreadyExists, "File already exists"},
      {FailureNumber::diskFull, "Disk full"},
      {FailureNumber::inputPastEnd, "Input past end of file"},
      {FailureNumber::permissionDenied, "Permission denied"},
      {FailureNumber::pathFileAccess, "Path/File access error"},
      {FailureNumber::pathNotFound, "Path not found"},
      {FailureNumber::fileChanged, "The file has changed since the scan"},
  };
  for (const auto& [number, words] : expected) {
    const Failure failure(number);
    EXPECT_EQ(failure.number, static_cast<int>(number));
    EXPECT_EQ(failure.description, words);
    EXPECT_STREQ(failure.what(), words);
  }
}

TEST(Failure, IsThrownByFail) {
  try {
    fail(FailureNumber::diskFull);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, 61);
    EXPECT_TRUE(failure.is(FailureNumber::diskFull));
    EXPECT_FALSE(failure.is(FailureNumber::deviceError));
    return;
  }
  FAIL() << "nothing was thrown";
}

}  // namespace
}  // namespace quernstoke
