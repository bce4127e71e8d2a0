#pragma once

#include "core/integers.h"

namespace quernstoke {

class BoldRuler;
class FlexGridModel;
class ResultsControls;

// Makes every column of a grid as wide as what it shows on the screen, and gives the rest of the
// grid's width to `expandCol`. A cell with a picture counts with `pictureWidth`. Lengths are in
// twips.
void basAutoSetGridWidth(FlexGridModel& grid, Int16 expandCol, BoldRuler& ruler,
                         Int16 pictureWidth);

// Gives the columns of the results the grid's width, but for that of percentages, which stays as it
// is and for which nothing makes room.
void basSetGridWidth(ResultsControls& form);

// Turns that on or off for the fills to come.
void cmdAutoResize_Click(ResultsControls& form);

}  // namespace quernstoke
