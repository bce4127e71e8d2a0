#pragma once

#include <cstdint>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class FlexGridModel;
class TextRuler;

// What the procedures of the directory match window ask of its controls. A control is known by its
// name; an element of a control array ends in its index.
class DirMatchControls {
 public:
  virtual ~DirMatchControls() = default;

  virtual FlexGridModel& griddir() = 0;
  virtual bool chkShowAll() const = 0;
  virtual const TextRuler& labSizer() const = 0;   // Measures what a label shows.
  virtual const TextRuler& cellRuler() const = 0;  // What a cell of the grid takes to show a text.
  virtual Int32 labDirNameGap() const = 0;         // Between the two labels.
  virtual Int32 width(std::string_view label) const = 0;

  virtual void setText(std::string_view label, std::string_view text) = 0;
  virtual void setVisible(std::string_view control, bool visible) = 0;
  virtual void setEnabled(std::string_view control, bool enabled) = 0;

  virtual std::intptr_t hWnd() const = 0;  // The window, as the desktop knows it.
};

}  // namespace quernstoke
