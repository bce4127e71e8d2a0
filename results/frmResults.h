#pragma once

#include <QPlainTextEdit>

#include "controls/form.h"

namespace quernstoke::forms {

// Lists the sets of a finished scan, one path a line. Closing it leads back to the main window.
class frmResults : public Form {
  Q_OBJECT

 public:
  frmResults();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  QPlainTextEdit* sets_;
};

}  // namespace quernstoke::forms
