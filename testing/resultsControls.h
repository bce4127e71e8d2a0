#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/flexGridModel.h"
#include "platform/controls.h"
#include "results/resultsControls.h"
#include "testing/gridScreen.h"

namespace quernstoke {

// Tells each change of its value, as a real one does.
class ScriptedScrollBar : public ScrollBarControl {
 public:
  std::function<void()> onChange;
  std::vector<int> values;  // All that it was moved to.
  std::string text;         // The tag.
  bool visible = true;

  std::string tag() const override { return text; }
  void setTag(std::string_view tag) override { text = tag; }
  std::int16_t minimum() const override { return minimum_; }
  std::int16_t maximum() const override { return maximum_; }
  std::int16_t largeChange() const override { return largeChange_; }
  std::int16_t value() const override { return value_; }
  void setMinimum(std::int16_t minimum) override {
    minimum_ = minimum;
    move(value_);
  }
  void setMaximum(std::int16_t maximum) override {
    maximum_ = maximum;
    move(value_);
  }
  void setLargeChange(std::int16_t change) override { largeChange_ = change; }
  void setValue(std::int16_t value) override { move(value); }
  void setVisible(bool shown) override { visible = shown; }

 private:
  void move(std::int16_t value) {
    const std::int16_t reached = std::max(minimum_, std::min(maximum_, value));
    if (reached == value_) return;
    value_ = reached;
    values.push_back(reached);
    if (onChange) onChange();
  }

  std::int16_t minimum_ = 0;
  std::int16_t maximum_ = 32767;
  std::int16_t largeChange_ = 1;
  std::int16_t value_ = 0;
};

class ScriptedPictureButton : public PictureButtonControl {
 public:
  std::string text;  // The tag.
  std::string picture;

  std::string tag() const override { return text; }
  void setTag(std::string_view tag) override { text = tag; }
  void setPicture(std::string_view key) override { picture = key; }
};

// Measures a character as 100 twips, as the scripted screen does.
class TwipRuler : public TextRuler {
 public:
  std::int32_t width(std::string_view text) const override {
    return 100 * static_cast<std::int32_t>(text.size());
  }
};

// The results window with a grid on a scripted screen, as its load leaves it.
class ScriptedResultsControls : public ResultsControls {
 public:
  ScriptedResultsControls() {
    grid.showOn(&screen);
    autoResize.setTag("1");
    autoResize.setPicture("On");
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
  ScriptedScrollBar scrollBar;
  ScriptedPictureButton autoResize;
  bool noDuplicatesShown = false;
  std::vector<std::string> disabled;
  std::vector<std::string> menus;  // All that were popped up.
  int statusBarUpdates = 0;

  FlexGridModel& gridMatches() override { return grid; }
  ScrollBarControl& vscrGridMatches() override { return scrollBar; }
  PictureButtonControl& cmdAutoResize() override { return autoResize; }
  const TextRuler& labSizer() const override { return ruler_; }
  void labNoDuplicates(bool visible) override { noDuplicatesShown = visible; }
  void disable(std::string_view control) override { disabled.emplace_back(control); }
  Int32 pictureWidth(std::string_view picture) const override {
    return picture == "SimpleTick" ? 423 : 0;
  }
  std::intptr_t hWnd() const override { return 77; }
  void popUp(std::string_view menu) override { menus.emplace_back(menu); }
  void basUpdateStatusBar() override { ++statusBarUpdates; }

 private:
  TwipRuler ruler_;
};

}  // namespace quernstoke
