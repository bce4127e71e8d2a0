#pragma once

#include <cstdint>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class FlexGridModel;
class ScrollBarControl;

// The grid of the results window holds one page of the catalogue. A scroll bar of its own ranges
// over the file numbers, and each movement fills the page anew.

namespace resultsView {
constexpr std::int16_t oneLine = 0;
constexpr std::int16_t twoLines = 1;
}  // namespace resultsView

namespace resultsGroup {
constexpr std::int16_t match = 0;
constexpr std::int16_t directory = 1;
}  // namespace resultsGroup

// What the row data of a grid row says when it is no file number.
namespace rowMark {
constexpr int secondLine = -1;  // Of the file in the row above.
constexpr int empty = -2;
}  // namespace rowMark

extern Int16 ResultsView;
extern Int16 ResultsGroup;
extern Int16 GridPageRows;      // Rows of the grid that a page uses.
extern Int16 GridLinesPerFile;  // Rows of the grid that a file takes.
extern Int32 GridFirstFile;
extern Int32 GridLastFile;
extern Int32 GridPrevScroll;  // Where the scroll bar stood when it was last heeded.
extern Int16 GridPageCount;
extern Int16 GridCurrentPage;

// Gives the grid as many rows as its height asks for, whatever the catalogue holds: those on the
// screen and one more. A page uses all of them but the last one on the screen.
void basDetermineMatchGridSize(FlexGridModel& grid);

// Works out the files of a page from those of the page before. Mode "POS" goes to `position`,
// "PGUP", "PGDN", "SINGLEUP" and "SINGLEDOWN" move; any other text stays. The scroll bar is brought
// to its end when the page lies at that of the catalogue. REQUIRES: linesPerFile > 0.
void basFillGrid_SetRegion(std::string_view mode, Int32& firstFile, Int32& lastFile,
                           Int16 linesPerFile, Int32 position, ScrollBarControl& scrollBar);

// The whole part of a number of at least 0, and one more for a fraction. More than 32767 is
// reported as a procedure error and gives 0.
Int16 basRoundUp(float value);

// GridPageCount and GridCurrentPage for the page that was filled.
void countPages();

}  // namespace quernstoke
