#include "results/gridScrolling.h"

#include <string_view>

#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "platform/controls.h"
#include "results/gridPaging.h"
#include "results/resultsControls.h"
#include "results/resultsGrid.h"

namespace quernstoke {

namespace {

// The values of the scroll bar end here. Up to this many files each value is a file number.
constexpr int longestScroll = 32000;

bool scrollIsScaled() {
  return FileCount > longestScroll;
}

// What a movement of the scroll bar asks for.
struct Turn {
  std::string_view mode;
  Int32 position;
};

Turn turnTo(const ScrollBarControl& scrollBar) {
  constexpr int unused = -1;
  const Int32 value = scrollBar.value();
  const Int32 page = scrollBar.largeChange();
  const Int32 moved = value - GridPrevScroll;
  if (moved == -1) return {"SINGLEUP", unused};
  if (moved < 0 && -moved == page) return {"PGUP", unused};
  if (moved == 1) return {"SINGLEDOWN", unused};
  if (moved > 0 && moved == page) return {"PGDN", unused};
  if (moved == 0) return {"", 0};
  if (!scrollIsScaled()) return {"POS", value};
  return {"POS", roundedQuotient(std::int64_t{value.raw()} * FileCount.raw(), longestScroll)};
}

}  // namespace

void prepareScrollBar(ScrollBarControl& scrollBar) {
  const std::int64_t lines = GridLinesPerFile.raw();
  const Int16 largeChange =
      GridPageRows > 1 ? Int16(roundedQuotient(GridPageRows.raw() - lines, lines)) : Int16(1);
  scrollBar.setTag("IGNORE");
  GridPrevScroll = 0;
  scrollBar.setMinimum(1);
  scrollBar.setValue(1);
  scrollBar.setLargeChange(largeChange.raw());
  scrollBar.setMaximum(scrollIsScaled() ? Int16(longestScroll).raw() : Int16(FileCount + 1).raw());
  scrollBar.setTag("");
}

void vscrGridMatches_Change(ResultsControls& form) {
  procedure("vscrGridMatches_Change", [&] {
    const ScrollBarControl& scrollBar = form.vscrGridMatches();
    if (scrollBar.tag() == "IGNORE") return;
    const Turn turn = turnTo(scrollBar);
    basFillGrid(form, turn.mode, turn.position);
    GridPrevScroll = scrollBar.value();
    form.gridMatches().setFocus();
  });
}

void gridMatches_KeyUp(ResultsControls& form, GridKey key) {
  procedure("gridMatches_KeyUp", [&] {
    constexpr int behindTheEnd = 999999;
    switch (key) {
      case GridKey::pageUp:
        return basFillGrid(form, "PGUP", -1);
      case GridKey::pageDown:
        return basFillGrid(form, "PGDN", -1);
      case GridKey::end:
        return basFillGrid(form, "POS", behindTheEnd);
      case GridKey::home:
        return basFillGrid(form, "POS", 1);
      case GridKey::none:
        return;
    }
  });
}

}  // namespace quernstoke
