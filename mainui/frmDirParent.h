#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "core/integers.h"
#include "mainui/dirComponents.h"

namespace Ui {
class frmDirParent;
}

namespace quernstoke {

class LabelButton;

namespace forms {

// The dialog that lets the person choose how much of a path is meant. DialogText holds the path and
// takes its chosen part, empty if nothing was chosen. DialogValue and DialogValue2 are the values
// of the two boxes, 2 for one that is dimmed; -1 leaves a box as it is, and if both are -1 there
// are none.
class frmDirParent : public Form {
  Q_OBJECT

 public:
  frmDirParent();
  ~frmDirParent() override;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload(UnloadCause cause) override;

 private:
  void basProcessDir();
  void basHighlightDirName(Int16 lastLabel);
  void labDirComponent_Click(Int16 index);
  void cmdOK_Click();
  void cmdCancel_Click();

  LabelButton& label(Int16 index);
  void addLabel();
  void orderTabs();
  void placeBehind(Int16 index);
  void showSelectedPart(int rightEdge);
  void fitWindow();

  std::unique_ptr<Ui::frmDirParent> ui_;
  std::string selectedDir_;
  PathComponents components_;
  std::vector<std::string> captions_;  // Of the labels.
  std::vector<LabelButton*> labDirComponent_;
  bool firstActivation_ = false;
};

}  // namespace forms
}  // namespace quernstoke
