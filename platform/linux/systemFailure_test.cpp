#include "platform/linux/systemFailure.h"

#include <cerrno>
#include <gtest/gtest.h>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(SystemFailure, WhatIsMissingHasANumberForFilesAndOneForDirectories) {
  EXPECT_EQ(failureFor(ENOENT, Subject::file), FailureNumber::fileNotFound);
  EXPECT_EQ(failureFor(ENOENT, Subject::directory), FailureNumber::pathNotFound);
  EXPECT_EQ(failureFor(ENOTDIR, Subject::file), FailureNumber::pathNotFound);
}

TEST(SystemFailure, RefusedPermissionsHaveANumberForFilesAndOneForDirectories) {
  for (const int error : {EACCES, EPERM, EROFS}) {
    EXPECT_EQ(failureFor(error, Subject::file), FailureNumber::permissionDenied);
    EXPECT_EQ(failureFor(error, Subject::directory), FailureNumber::pathFileAccess);
  }
}

TEST(SystemFailure, TroubleWithTheDiskIsToldApart) {
  EXPECT_EQ(failureFor(ENOSPC, Subject::file), FailureNumber::diskFull);
  EXPECT_EQ(failureFor(EDQUOT, Subject::file), FailureNumber::diskFull);
  EXPECT_EQ(failureFor(EIO, Subject::file), FailureNumber::deviceError);
  EXPECT_EQ(failureFor(ENOMEM, Subject::file), FailureNumber::outOfMemory);
}

TEST(SystemFailure, AnythingElseIsAnAccessError) {
  for (const int error : {EMFILE, ELOOP, EXDEV, ENOTEMPTY, EISDIR})
    EXPECT_EQ(failureFor(error, Subject::file), FailureNumber::pathFileAccess);
}

TEST(SystemFailure, FailsWithTheNumber) {
  EXPECT_FAILURE(fileAlreadyExists, failWith(EEXIST, Subject::file));
}

}  // namespace
}  // namespace quernstoke
