#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class FrameControl;
class OptionControl;

// Runs a scan of the current profile from its log to the window that follows it. StartMode says
// whether it starts anew or continues.
void basStartScan();

// The scan itself: prepares its fields, runs its stages, writes the snapshots and the profile.
void basDoScan();

// Sorts the catalogue for a pass, prunes it unless the scan continues, and forms its groups. Mode
// "NAME", "SIZE" or "MATCHNUM".
void basPrepareFilesListForCompare(std::string_view mode, Int16 start);

// Shows the outcome of the profile's last scan in the main window's start mode controls.
void basUpdateStateOptions(FrameControl& fraStartMode, OptionControl& optionNew,
                           OptionControl& optionContinue);

}  // namespace quernstoke
