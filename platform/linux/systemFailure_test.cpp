#include "platform/linux/systemFailure.h"

#include <cerrno>
#include <gtest/gtest.h>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(SystemFailure, WhatIsMissingHasANumberForFilesAndOneForDirectories) {
  EXPECT_EQ(FailureNumber::fileNotFound, failureFor(ENOENT, Subject::file));
  EXPECT_EQ(FailureNumber::pathNotFound, failureFor(ENOENT, Subject::directory));
  EXPECT_EQ(FailureNumber::pathNotFound, failureFor(ENOTDIR, Subject::file));
}

TEST(SystemFailure, RefusedPermissionsHaveANumberForFilesAndOneForDirectories) {
  for (const int error : {EACCES, EPERM, EROFS}) {
    EXPECT_EQ(FailureNumber::permissionDenied, failureFor(error, Subject::file));
    EXPECT_EQ(FailureNumber::pathFileAccess, failureFor(error, Subject::directory));
  }
}

TEST(SystemFailure, TroubleWithTheDiskIsToldApart) {
  EXPECT_EQ(FailureNumber::diskFull, failureFor(ENOSPC, Subject::file));
  EXPECT_EQ(FailureNumber::diskFull, failureFor(EDQUOT, Subject::file));
  EXPECT_EQ(FailureNumber::deviceError, failureFor(EIO, Subject::file));
  EXPECT_EQ(FailureNumber::outOfMemory, failureFor(ENOMEM, Subject::file));
}

TEST(SystemFailure, AnythingElseIsAnAccessError) {
  for (const int error : {EMFILE, ELOOP, EXDEV, ENOTEMPTY, EISDIR})
    EXPECT_EQ(FailureNumber::pathFileAccess, failureFor(error, Subject::file));
}

TEST(SystemFailure, FailsWithTheNumber) {
  EXPECT_FAILURE(fileAlreadyExists, failWith(EEXIST, Subject::file));
}

}  // namespace
}  // namespace quernstoke
