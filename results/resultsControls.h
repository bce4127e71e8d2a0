#pragma once

#include <cstdint>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class DirectoryButtonControl;
class FlexGridModel;
class MenuItemControl;
class PictureButtonControl;
class ScrollBarControl;
class TextRuler;

// What the procedures of the results window ask of its controls. A control, picture or menu is
// known by its name; an element of a control array ends in its index.
class ResultsControls {
 public:
  virtual ~ResultsControls() = default;

  virtual FlexGridModel& gridMatches() = 0;
  virtual const FlexGridModel& gridMatches() const = 0;
  virtual ScrollBarControl& vscrGridMatches() = 0;
  virtual PictureButtonControl& cmdAutoResize() = 0;
  virtual MenuItemControl& mnuFilter(Int16 index) = 0;         // Index 0 alone.
  virtual MenuItemControl& mnuFilterTwoDirs(Int16 index) = 0;  // Index 0 and 1.
  virtual DirectoryButtonControl& cmdSetDir(Int16 index) = 0;  // Index 0 and 1.
  virtual const TextRuler& labSizer() const = 0;
  virtual void labNoDuplicates(bool visible) = 0;
  virtual void disable(std::string_view control) = 0;

  virtual Int32 pictureWidth(std::string_view picture) const = 0;  // In the picture's own units.
  virtual std::intptr_t hWnd() const = 0;         // The window, as the desktop knows it.
  virtual void setTag(std::string_view tag) = 0;  // That of the window itself.
  // Whether the person can do anything in the window, resizing and moving it apart.
  virtual void takeInput(bool taken) = 0;
  // The last answer, while the window lives, on whether a pair also covers what lies below it.
  virtual bool& lastSubDirectories() = 0;
  // Whether a filter has put an exclusion into the profile, which is saved when the window is left.
  virtual bool& exclusionStored() = 0;
  virtual void popUp(std::string_view menu) = 0;
  // As many twips to the right of a control.
  virtual void popUpBeside(std::string_view menu, std::string_view control, Int32 gap) = 0;
  virtual void basUpdateStatusBar() = 0;
};

}  // namespace quernstoke
