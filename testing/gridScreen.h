#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/flexGridModel.h"

namespace quernstoke {

// A screen of 20 rows on which a character is 100 twips wide. Rows and titles are 300 twips high.
class ScriptedGridScreen : public GridScreen {
 public:
  std::int32_t rowsThatFit = 20;
  std::int32_t width = 9000;
  int changes = 0;
  std::vector<std::string> log;  // What was done to the grid as a whole: "show", "focus".

  void gridChanged() override { ++changes; }
  void extentChanged() override {}
  void cellsCleared() override {}
  void showGrid(bool visible) override { log.emplace_back(visible ? "show" : "hide"); }
  void enableGrid(bool enabled) override { log.emplace_back(enabled ? "enable" : "disable"); }
  void focusGrid() override { log.emplace_back("focus"); }

  std::int32_t gridWidth() const override { return width; }
  std::int32_t visibleHeight() const override { return (rowsThatFit + 1) * rowHeight(); }
  std::int32_t headerHeight() const override { return rowHeight(); }
  std::int32_t rowHeight() const override { return 300; }
  std::int32_t columnWidthFor(std::string_view text) const override {
    return 100 * static_cast<std::int32_t>(text.size());
  }
  std::string gridFont() const override { return "Grid"; }
};

inline std::vector<std::string> titlesOf(const FlexGridModel& grid) {
  std::vector<std::string> titles;
  for (Int32 col = 0; col < grid.cols(); ++col)
    titles.push_back(grid.cell(0, col).text);
  return titles;
}

}  // namespace quernstoke
