#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/flexGridModel.h"
#include "platform/controls.h"
#include "results/resultsControls.h"
#include "testing/fakes.h"
#include "testing/gridScreen.h"

namespace quernstoke {

// Tells each change of its value, as a real one does.
class ScriptedScrollBar : public ScriptedTagged<ScrollBarControl> {
 public:
  std::function<void()> onChange;
  std::vector<int> values;  // All that it was moved to.
  bool visible = true;

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

class ScriptedPictureButton : public ScriptedTagged<PictureButtonControl> {
 public:
  std::string picture;

  void setPicture(std::string_view key) override { picture = key; }
};

class ScriptedMenuItem : public ScriptedTagged<MenuItemControl> {
 public:
  std::string caption;

  void setCaption(std::string_view shown) override { caption = shown; }
};

class ScriptedDirectoryButton : public ScriptedTagged<DirectoryButtonControl> {
 public:
  std::string toolTip;
  bool bold = false;

  void setToolTip(std::string_view shown) override { toolTip = shown; }
  void setBold(bool shown) override { bold = shown; }
};

// The results window with a grid on a scripted screen, as its load leaves it.
class ScriptedResultsControls : public ResultsControls {
 public:
  ScriptedResultsControls() {
    grid.showOn(&screen);
    autoResize.setTag("1");
    autoResize.setPicture("On");
    for (const std::size_t index : {0, 1}) {
      const std::string caption = "Set Directory " + std::to_string(index + 1);
      filterTwoDirs[index].caption = directoryButtons[index].toolTip = caption;
    }
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
  ScriptedScrollBar scrollBar;
  ScriptedPictureButton autoResize;
  ScriptedMenuItem filterDirectory;
  std::array<ScriptedMenuItem, 2> filterTwoDirs;
  std::array<ScriptedDirectoryButton, 2> directoryButtons;
  bool noDuplicatesShown = false;
  std::vector<std::string> disabled;
  std::vector<std::string> menus;  // All that were popped up.
  int statusBarUpdates = 0;
  std::string tag;
  bool takesInput = true;
  bool subDirectories = false;
  bool newExclusion = false;

  FlexGridModel& gridMatches() override { return grid; }
  const FlexGridModel& gridMatches() const override { return grid; }
  ScrollBarControl& vscrGridMatches() override { return scrollBar; }
  PictureButtonControl& cmdAutoResize() override { return autoResize; }
  MenuItemControl& mnuFilter(Int16 /*index*/) override { return filterDirectory; }
  MenuItemControl& mnuFilterTwoDirs(Int16 index) override {
    return filterTwoDirs.at(static_cast<std::size_t>(index.raw()));
  }
  DirectoryButtonControl& cmdSetDir(Int16 index) override {
    return directoryButtons.at(static_cast<std::size_t>(index.raw()));
  }
  const TextRuler& labSizer() const override { return ruler_; }
  void labNoDuplicates(bool visible) override { noDuplicatesShown = visible; }
  void disable(std::string_view control) override { disabled.emplace_back(control); }
  Int32 pictureWidth(std::string_view picture) const override {
    return picture == "SimpleTick" ? 423 : 0;
  }
  std::intptr_t hWnd() const override { return 77; }
  void setTag(std::string_view text) override { tag = text; }
  void takeInput(bool taken) override { takesInput = taken; }
  bool& lastSubDirectories() override { return subDirectories; }
  bool& exclusionStored() override { return newExclusion; }
  void popUp(std::string_view menu) override { menus.emplace_back(menu); }
  void popUpBeside(std::string_view menu, std::string_view control, Int32 gap) override {
    menus.push_back(std::string(menu) + " beside " + std::string(control) + " + " +
                    std::to_string(gap.raw()));
  }
  void basUpdateStatusBar() override { ++statusBarUpdates; }

 private:
  CharacterRuler ruler_{100};  // As the scripted screen.
};

}  // namespace quernstoke
