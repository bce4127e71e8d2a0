#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// Whether the scan status window shows its long view.
extern bool ScanDetailsShown;

// Reports the scan's progress, and yields to the event loop. Empty text leaves the status line as
// it is, a file number of -1 the file. Unless `force` is set, only the status line is written
// while the long view is off.
void basUpdateStatusFields(std::string_view text, Int32 fileNumber, Int16 force);

// While the scan status window is minimised, its caption tells the percentage that is done;
// otherwise the window is refreshed, or its status bar brought up to date.
void showPercentWhenMinimised();
void showPositionInStatusBar();

}  // namespace quernstoke
