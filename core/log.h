#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// The log's open file; 0 when no log is open.
extern Int32 LogFileNumber;

// Writes one line to the log, or shows the message in a box if no log is open.
void basLogMsg(std::string_view message);

// Opens the log beside the executable, cutting an earlier one to nothing. Fails as opening does.
void openLog();
// Closes the log if it is open; from then on messages are shown in a box.
void closeLog();

}  // namespace quernstoke
