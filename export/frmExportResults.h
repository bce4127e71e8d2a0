#pragma once

#include <array>
#include <memory>

#include "controls/form.h"

class QLineEdit;
class QRadioButton;

namespace Ui {
class frmExportResults;
}

namespace quernstoke {
struct ResultsLayout;
}

namespace quernstoke::forms {

// The dialog that writes the present results to a file. What was chosen is kept in GlobalSettings.
class frmExportResults : public Form {
  Q_OBJECT

 public:
  frmExportResults();
  ~frmExportResults() override;

 protected:
  void Form_Load() override;

 private:
  void optOutputFormat_Click(int index);
  void cmdDirectoryBrowse_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  std::string outputDirectory() const;
  std::string outputFilename() const;
  ResultsLayout chosenLayout() const;
  void launch(const std::string& path) const;
  void storeSettings() const;

  std::unique_ptr<Ui::frmExportResults> ui_;
  std::array<QRadioButton*, 2> optOutputFormat_;
  std::array<QLineEdit*, 2> txtBlockMarker_;
};

}  // namespace quernstoke::forms
