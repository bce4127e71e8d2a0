#pragma once

#include <memory>

#include "controls/form.h"
#include "core/integers.h"

namespace Ui {
class frmAddFileType;
}

namespace quernstoke::forms {

// The dialog that edits FileTypeTable, at once with each change. DialogValue holds the row to
// select, -1 for none, and takes the row that was selected when it is closed.
class frmAddFileType : public Form {
  Q_OBJECT

 public:
  frmAddFileType();
  ~frmAddFileType() override;

 protected:
  void Form_Load() override;

 private:
  void basBuildFileTypesList();
  void basEditDescription(int position);
  void basEditFileExtension(int position);
  void basRebuildExtensionList();
  void lstDescription_Click();
  void lstDescription_DblClick();
  void lstFileExtensions_DblClick();
  void cmdAddorDelete_Click(int index);
  void cmdClose_Click();

  void addType();
  void deleteType();
  void addExtension();
  void deleteExtension();
  bool refusesRow(Int32 row) const;
  Int32 selectedRow() const;

  std::unique_ptr<Ui::frmAddFileType> ui_;
};

}  // namespace quernstoke::forms
