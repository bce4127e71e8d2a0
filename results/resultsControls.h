#pragma once

#include <cstdint>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class FlexGridModel;
class PictureButtonControl;
class ScrollBarControl;
class TextRuler;

// What the procedures of the results window ask of its controls. A control, picture or menu is
// known by its name; an element of a control array ends in its index.
class ResultsControls {
 public:
  virtual ~ResultsControls() = default;

  virtual FlexGridModel& gridMatches() = 0;
  virtual ScrollBarControl& vscrGridMatches() = 0;
  virtual PictureButtonControl& cmdAutoResize() = 0;
  virtual const TextRuler& labSizer() const = 0;
  virtual void labNoDuplicates(bool visible) = 0;
  virtual void disable(std::string_view control) = 0;

  virtual Int32 pictureWidth(std::string_view picture) const = 0;  // In the picture's own units.
  virtual std::intptr_t hWnd() const = 0;  // The window, as the desktop knows it.
  virtual void popUp(std::string_view menu) = 0;
  virtual void basUpdateStatusBar() = 0;
};

}  // namespace quernstoke
