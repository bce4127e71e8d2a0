#pragma once

#include <array>

#include "mainui/statusPanels.h"

namespace quernstoke {

// The panels of the results window that carry text, in the order in which they are set. Those
// between are separators; none has a help text.
std::array<PanelText, 4> resultsStatusPanels();

// What is done when the results are left: the copies of files in archives go, and what was ticked,
// deleted and filtered reaches the disk.
void leaveResults();

}  // namespace quernstoke
