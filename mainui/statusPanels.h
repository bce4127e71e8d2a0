#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quernstoke {

// What a panel of a status bar shows. The tag is the number of its help text, empty for none.
struct PanelText {
  int number;
  std::string text;
  std::string_view tag;
};

// The panels of the main window that carry text, in the order in which they are set. Those between
// are separators.
std::array<PanelText, 5> mainStatusPanels();

}  // namespace quernstoke
