#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "controls/flexGridModel.h"
#include "dirmatch/dirMatchControls.h"
#include "dirmatch/dirMatchGrid.h"
#include "platform/controls.h"
#include "testing/fakes.h"
#include "testing/gridScreen.h"

namespace quernstoke {

// The directory match window with a grid on a scripted screen, as its load leaves it.
class ScriptedDirMatchControls : public DirMatchControls {
 public:
  ScriptedDirMatchControls() {
    screen.width = 20000;
    grid.showOn(&screen);
    grid.setFormatString(dirMatchTitles);
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
  bool showAll = false;
  std::map<std::string, std::string, std::less<>> texts;
  std::map<std::string, std::int32_t, std::less<>> widths;  // Of labels; 10000 unless set.
  std::set<std::string, std::less<>> visible = {"labFileDetailsMessage_1"};
  std::set<std::string, std::less<>> enabled;

  FlexGridModel& griddir() override { return grid; }
  bool chkShowAll() const override { return showAll; }
  const TextRuler& labSizer() const override { return labelRuler_; }
  const TextRuler& cellRuler() const override { return cellRuler_; }
  Int32 labDirNameGap() const override { return 150; }
  Int32 width(std::string_view label) const override {
    const auto found = widths.find(label);
    return found == widths.end() ? 10000 : found->second;
  }
  void setText(std::string_view label, std::string_view text) override {
    texts[std::string(label)] = text;
  }
  void setVisible(std::string_view control, bool shown) override { put(visible, control, shown); }
  void setEnabled(std::string_view control, bool can) override { put(enabled, control, can); }
  std::intptr_t hWnd() const override { return 77; }

 private:
  static void put(std::set<std::string, std::less<>>& names, std::string_view name, bool isIn) {
    if (isIn)
      names.emplace(name);
    else if (const auto found = names.find(name); found != names.end())
      names.erase(found);
  }

  CharacterRuler labelRuler_{100};
  CharacterRuler cellRuler_{100, 7};
};

}  // namespace quernstoke
