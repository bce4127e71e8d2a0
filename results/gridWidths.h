#pragma once

#include "core/integers.h"

namespace quernstoke {

class BoldRuler;
class FlexGridModel;

// Makes every column of a grid as wide as what it shows on the screen, and gives the rest of the
// grid's width to `expandCol`. A cell with a picture counts with `pictureWidth`. Lengths are in
// twips.
void basAutoSetGridWidth(FlexGridModel& grid, Int16 expandCol, BoldRuler& ruler,
                         Int16 pictureWidth);

}  // namespace quernstoke
