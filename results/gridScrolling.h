#pragma once

#include "controls/flexGridModel.h"

namespace quernstoke {

class ResultsControls;
class ScrollBarControl;

// Lets the scroll bar range over the catalogue, from its first file. Up to 32000 files its values
// are file numbers; beyond that 32000 stands for the last file.
void prepareScrollBar(ScrollBarControl& scrollBar);

// The events that turn the page: a movement of the scroll bar, and a key let go in the grid.
void vscrGridMatches_Change(ResultsControls& form);
void gridMatches_KeyUp(ResultsControls& form, GridKey key);

}  // namespace quernstoke
