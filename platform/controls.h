#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quernstoke {

// The few operations that the engine asks of controls of a window.

class FrameControl {
 public:
  virtual ~FrameControl() = default;
  virtual void setVisible(bool visible) = 0;
};

class OptionControl {
 public:
  virtual ~OptionControl() = default;
  virtual void setEnabled(bool enabled) = 0;
  virtual void select() = 0;  // Also takes the selection off the other options of the frame.
};

// A control that carries a text of the program's own, which nobody sees.
class TaggedControl {
 public:
  virtual ~TaggedControl() = default;
  virtual std::string tag() const = 0;
  virtual void setTag(std::string_view tag) = 0;
};

class PictureButtonControl : public TaggedControl {
 public:
  virtual void setPicture(std::string_view key) = 0;
};

class MenuItemControl : public TaggedControl {
 public:
  virtual void setCaption(std::string_view caption) = 0;
};

// A button that stands for a directory once one was picked.
class DirectoryButtonControl : public TaggedControl {
 public:
  virtual void setToolTip(std::string_view text) = 0;
  virtual void setBold(bool bold) = 0;
};

// A vertical scroll bar. Whoever moves it, its change is told as one; the tag says whether the
// program itself is moving it.
class ScrollBarControl : public TaggedControl {
 public:
  virtual std::int16_t minimum() const = 0;
  virtual std::int16_t maximum() const = 0;
  virtual std::int16_t largeChange() const = 0;  // What a click beside the thumb moves it by.
  virtual std::int16_t value() const = 0;
  virtual void setMinimum(std::int16_t minimum) = 0;
  virtual void setMaximum(std::int16_t maximum) = 0;
  virtual void setLargeChange(std::int16_t change) = 0;
  virtual void setValue(std::int16_t value) = 0;
  virtual void setVisible(bool visible) = 0;
};

class TextControl {
 public:
  virtual ~TextControl() = default;
  virtual void setText(std::string_view text) = 0;
};

// A list whose items carry a number. Positions count from 0.
class ListControl {
 public:
  virtual ~ListControl() = default;
  virtual void clear() = 0;
  virtual void add(std::string_view text, std::int16_t data) = 0;
  virtual std::int16_t count() const = 0;
  virtual std::int16_t data(std::int16_t position) const = 0;
};

// Measures text as one control would show it.
class TextRuler {
 public:
  virtual ~TextRuler() = default;
  virtual std::int32_t width(std::string_view text) const = 0;
};

// The same for text in the font of another control, as that tells it, which may be bold.
class BoldRuler : public TextRuler {
 public:
  virtual void setFont(std::string_view font) = 0;
  virtual void setBold(bool bold) = 0;
};

}  // namespace quernstoke
