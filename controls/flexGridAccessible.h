#pragma once

#include <QAccessible>

namespace quernstoke {

class FlexGrid;

// Lets screen readers see each grid as a list of its rows, whose names are what they say; the
// current row is also the grid's value.
void makeFlexGridsAccessible();

// Tells them that another row is current, or that it says something else now.
void tellRowFocused(FlexGrid& grid);

}  // namespace quernstoke
