#pragma once

#include "platform/failure.h"

namespace quernstoke {

// What an operation was about; the same error of the system has a number for each.
enum class Subject { file, directory };

FailureNumber failureFor(int error, Subject subject);
[[noreturn]] void failWith(int error, Subject subject);

// Whether the error says that there is nothing under the path.
bool saysAbsent(int error);

}  // namespace quernstoke
