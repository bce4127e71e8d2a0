#pragma once

#include "core/integers.h"

namespace quernstoke {

class TaggedControl;
class TextControl;

// The step that the person has reached, 0 to 4: what the help panel tells while the pointer is over
// no control in particular.
extern Int16 HelpState;

// Puts a help text into a window's help panel: that of a control, or with an id of 0 or below that
// of the step reached. The frame's tag holds the number of the text that is shown, and with an
// empty tag the welcome text comes first.
void basDisplayHelp(Int16 helpId, TaggedControl& frame, TextControl& textBox);

// The step reached by the current profile, whose directory list shows `gridRows` rows with its
// header, and of whose match options `tickedOptions` are ticked.
Int16 basDetermineHelpState(Int32 gridRows, Int32 tickedOptions);

}  // namespace quernstoke
