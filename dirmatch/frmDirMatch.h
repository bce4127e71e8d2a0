#pragma once

#include <memory>
#include <string_view>

#include "controls/form.h"
#include "core/integers.h"
#include "core/table.h"
#include "dirmatch/dirMatchControls.h"

namespace Ui {
class frmDirMatch;
}

namespace quernstoke::forms {

class CellRuler;

// Shows the files below DirMatchDir1 and DirMatchDir2 side by side, copies of a file on one line,
// and lets the person delete, move and open them.
class frmDirMatch : public Form, private DirMatchControls {
  Q_OBJECT

 public:
  frmDirMatch();
  ~frmDirMatch() override;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Unload() override;

 private:
  // The controls as the procedures ask for them.
  FlexGridModel& griddir() override;
  bool chkShowAll() const override;
  const TextRuler& labSizer() const override;
  const TextRuler& cellRuler() const override;
  Int32 labDirNameGap() const override;
  Int32 width(std::string_view label) const override;
  void setText(std::string_view label, std::string_view text) override;
  void setVisible(std::string_view control, bool visible) override;
  void setEnabled(std::string_view control, bool enabled) override;
  std::intptr_t hWnd() const override;

  void connectControls();
  template <class Command>
  void keepingTheRows(Command command);
  void chkShowAll_Click();
  void selectByMouse();
  void selectByKey();
  void basPositionFormObjects();
  void limitSize();

  std::unique_ptr<Ui::frmDirMatch> ui_;
  std::unique_ptr<CellRuler> cellRuler_;
  Table<Int32> filePointersBefore_;
  Int32 selectedCol_;  // The first one of the selection, as the last click or key has left it.
  bool firstActivation_ = false;
  bool rowsAreKept_ = false;  // By a command that may be showing a message.
};

}  // namespace quernstoke::forms
