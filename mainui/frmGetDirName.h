#pragma once

#include <array>
#include <memory>

#include "controls/form.h"
#include "core/integers.h"

class QLineEdit;
class QRadioButton;

namespace Ui {
class frmGetDirName;
}

namespace quernstoke::forms {

// The dialog that adds one entry to ProfileDirList or changes one. DialogValue holds the slot, or
// -1 to add.
class frmGetDirName : public Form {
  Q_OBJECT

 public:
  frmGetDirName();
  ~frmGetDirName() override;

 protected:
  void Form_Load() override;

 private:
  void basUpdateControls();
  void basSaveValues();
  void optIncludeExclude_Click();
  void cmdBrowse_Click(int index);
  void cmdEditTypes_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  bool isSelected(int option) const;
  void showSlot();
  void selectOption(int option);
  void showFileTypes(const std::string& extensions);
  bool directoryExists(int index);
  std::string fileTypesToSave();

  std::unique_ptr<Ui::frmGetDirName> ui_;
  std::array<QRadioButton*, 3> optIncludeExclude_;
  std::array<QLineEdit*, 2> txtDirectory_;
  Int32 editRow_;
  bool addMode_ = false;
};

}  // namespace quernstoke::forms
