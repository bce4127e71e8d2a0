#include "results/gridPaging.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "catalogue/fileTable.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "platform/controls.h"

namespace quernstoke {

Int16 ResultsView;
Int16 ResultsGroup;
Int16 GridPageRows;
Int16 GridLinesPerFile;
Int32 GridFirstFile;
Int32 GridLastFile;
Int32 GridPrevScroll;
Int16 GridPageCount;
Int16 GridCurrentPage;

namespace {

struct Region {
  Int32 first;
  Int32 last;
};

// A number of files and `pages` pages more. With two lines a file a page may hold half a file; the
// sum is rounded as a whole, a half to the even neighbour.
Int32 withPages(std::int64_t files, int pages, Int16 linesPerFile) {
  const std::int64_t lines = linesPerFile.raw();
  return Int32(roundedQuotient(files * lines + std::int64_t{pages} * GridPageRows.raw(), lines));
}

// The steps differ by one file on purpose: a page after a jump follows on, one after a page
// repeats a file.
Region moved(std::string_view mode, Region from, Int16 lines, Int32 position) {
  const std::int64_t last = from.last.raw();
  if (mode == "PGDN") return {from.last, withPages(last - 1, 1, lines)};
  if (mode == "PGUP") return {withPages(from.first.raw(), -1, lines), from.first};
  if (mode == "POS") return {position, withPages(position.raw(), 1, lines)};
  if (mode == "SINGLEUP") return {from.first - 1, from.last - 1};
  if (mode == "SINGLEDOWN") {
    const Int32 first = from.first + 1;
    return {first, withPages(first.raw(), 1, lines)};
  }
  return from;
}

void moveUnheeded(ScrollBarControl& scrollBar, std::int16_t value) {
  scrollBar.setTag("IGNORE");
  scrollBar.setValue(value);
  scrollBar.setTag("");
}

}  // namespace

void basDetermineMatchGridSize(FlexGridModel& grid) {
  procedure("basDetermineMatchGridSize", [&] {
    constexpr int moreThanAnyScreen = 100;
    constexpr int titlesAndTwoMore = 3;
    if (grid.rows() <= 1 || grid.rowIsVisible(grid.rows() - 1)) grid.setRows(moreThanAnyScreen);
    GridPageRows = 0;
    for (Int32 row = 1; grid.rowIsVisible(row); ++row)
      ++GridPageRows;
    --GridPageRows;
    grid.setRows(Int32(GridPageRows) + titlesAndTwoMore);
  });
}

void basFillGrid_SetRegion(std::string_view mode, Int32& firstFile, Int32& lastFile,
                           Int16 linesPerFile, Int32 position, ScrollBarControl& scrollBar) {
  procedure("basFillGrid_SetRegion", [&] {
    const Region region = moved(mode, {firstFile, lastFile}, linesPerFile, position);
    firstFile = region.first;
    lastFile = region.last;
    if (lastFile > FileCount) {
      lastFile = FileCount;
      moveUnheeded(scrollBar, scrollBar.maximum());
      firstFile = std::max(withPages(std::int64_t{lastFile.raw()} + 1, -1, linesPerFile), Int32(1));
    }
    if (firstFile < 2) {
      moveUnheeded(scrollBar, scrollBar.minimum());
      firstFile = 1;
      lastFile = std::min(withPages(1, 1, linesPerFile), FileCount);
    }
  });
}

Int16 basRoundUp(float value) {
  return procedure("basRoundUp", [&] {
    const float whole = std::trunc(value);
    const Int16 result(static_cast<std::int64_t>(whole));
    return value > whole ? result + 1 : result;
  });
}

void countPages() {
  if (GridPageRows <= 1) return;
  const float filesPerPage =
      static_cast<float>(GridPageRows.raw()) / static_cast<float>(GridLinesPerFile.raw());
  GridPageCount = basRoundUp(static_cast<float>(FileCount.raw()) / filesPerPage);
  using Wide = Checked<std::int64_t>;
  GridCurrentPage = Int16(Wide(GridFirstFile) * Wide(GridPageCount) / Wide(FileCount)) + 1;
}

}  // namespace quernstoke
