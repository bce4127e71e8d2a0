#pragma once

#include <string>
#include <vector>

#include "dirmatch/dirMatchActions.h"
#include "dirmatch/dirMatchTest.h"

namespace quernstoke {

// The actions of the window, with a person who answers as told.
class DirMatchActionsTest : public DirMatchTest {
 protected:
  void answer(const std::vector<Answer>& answers) { dialogBoxes.answers = answers; }
  void deleteRows(int from, int to, int side, const std::vector<Answer>& answers) {
    answer(answers);
    select(from, to, side == left ? 0 : 6);
    cmdDelete_Click(form, side);
  }
  void moveRows(int from, int to, int side, const std::vector<Answer>& answers) {
    answer(answers);
    select(from, to, side == left ? 0 : 6);
    cmdMove_Click(form, side);
  }
  std::string content(const std::string& path) const { return disk.content("C:\\" + path); }
  std::string lastMessage() const { return dialogBoxes.messages.back(); }
  // Files of these names in a directory on the left, in one group with a file on the right.
  void showOnTheLeft(const std::vector<std::string>& names, const std::string& directory) {
    std::vector<CatalogueFile> files;
    for (const std::string& name : names)
      files.push_back({name, directory, 1, 0});
    files.push_back({"z", "C:\\right", 1, 0});
    show(files);
  }
};

}  // namespace quernstoke
