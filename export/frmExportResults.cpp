#include "export/frmExportResults.h"

#include <QLayout>
#include <algorithm>
#include <string>

#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "export/resultsFile.h"
#include "export/resultsRows.h"
#include "export/ui_frmExportResults.h"
#include "mainui/modalForms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

enum : std::uint8_t { html, csv };

constexpr std::array<const char*, 2> extensions = {"html", "csv"};

}  // namespace

frmExportResults::frmExportResults() : ui_(std::make_unique<Ui::frmExportResults>()) {
  ui_->setupUi(this);
  optOutputFormat_ = {ui_->optOutputFormat_0, ui_->optOutputFormat_1};
  txtBlockMarker_ = {ui_->txtBlockMarker_0, ui_->txtBlockMarker_1};
  for (const int index : {html, csv})
    connect(optOutputFormat_[static_cast<std::size_t>(index)], &QRadioButton::toggled, this,
            [this, index](bool selected) {
              if (selected) optOutputFormat_Click(index);
            });
  connect(ui_->cmdDirectoryBrowse, &QAbstractButton::clicked, this,
          &frmExportResults::cmdDirectoryBrowse_Click);
  connect(ui_->cmdOK, &QAbstractButton::clicked, this, &frmExportResults::cmdOK_Click);
  connect(ui_->cmdCancel, &QAbstractButton::clicked, this, &frmExportResults::cmdCancel_Click);
  setCancelButton(*ui_->cmdCancel);
}

frmExportResults::~frmExportResults() = default;

void frmExportResults::Form_Load() {
  procedure("Form_Load", [this] {
    // The texts take more lines with a larger font.
    resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
    const GlobalSettingsRecord& settings = GlobalSettings;
    const int format = settings.ResultsOutputFormat == "CSV" ? csv : html;
    optOutputFormat_Click(html);  // It is selected already.
    optOutputFormat_[static_cast<std::size_t>(format)]->setChecked(true);
    const std::string& directory = settings.ResultsOutputDirectory;
    ui_->txtOutputDirectory->setText(qtText(directory.empty() ? AppPath : directory));
    std::string name = settings.ResultsOutputFile;
    if (name.empty()) name = "Results.";
    if (name.ends_with('.')) name += extensions[static_cast<std::size_t>(format)];
    ui_->txtOutputFilename->setText(qtText(name));
    ui_->chkNumberBlocks->setChecked(settings.ResultsNumberEachBlock);
    ui_->chkUseBlockMarkers->setChecked(settings.ResultsBlockMarkers);
    for (std::size_t i = 0; i < txtBlockMarker_.size(); ++i)
      txtBlockMarker_[i]->setText(qtText(settings.ResultsBlockIndicator[i + 1]));
    // The same box once more: both settings are filled from it.
    ui_->chkUseBlockMarkers->setChecked(settings.ResultsLaunch);
  });
}

void frmExportResults::optOutputFormat_Click(int index) {
  procedure("optOutputFormat_Click", [&] {
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->fraBlockIndicators, ui_->fraNumberBlocks,
                                         ui_->chkNumberBlocks, ui_->chkUseBlockMarkers})
      control->setEnabled(index == csv);
    std::string name = outputFilename();
    if (name.empty()) name = "results.";
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos)
      name += '.';
    else
      name.resize(dot + 1);
    ui_->txtOutputFilename->setText(qtText(name + extensions[static_cast<std::size_t>(index)]));
  });
}

void frmExportResults::cmdDirectoryBrowse_Click() {
  procedure("cmdDirectoryBrowse_Click", [this] {
    DialogText = outputDirectory();
    modalForms.frmDirTree();
    if (!DialogText.empty()) ui_->txtOutputDirectory->setText(qtText(DialogText));
  });
}

std::string frmExportResults::outputDirectory() const {
  return enteredText(ui_->txtOutputDirectory->text());
}

std::string frmExportResults::outputFilename() const {
  return enteredText(ui_->txtOutputFilename->text());
}

ResultsLayout frmExportResults::chosenLayout() const {
  return {optOutputFormat_[csv]->isChecked() ? ResultsFormat::csv : ResultsFormat::html,
          ui_->chkUseBlockMarkers->isChecked(),
          {enteredText(txtBlockMarker_[0]->text()), enteredText(txtBlockMarker_[1]->text())},
          ui_->chkNumberBlocks->isChecked()};
}

void frmExportResults::launch(const std::string& path) const {
  const auto open = [](const std::string& file) {
    return basShellOpen(file, ShowMode::byDefault, "", "", "open", 0);
  };
  if (open(path) == "NOASSOC") open("notepad.exe " + path);
}

void frmExportResults::storeSettings() const {
  const ResultsLayout chosen = chosenLayout();
  GlobalSettings.ResultsOutputFormat = chosen.format == ResultsFormat::csv ? "CSV" : "HTML";
  GlobalSettings.ResultsOutputDirectory = outputDirectory();
  GlobalSettings.ResultsOutputFile = outputFilename();
  GlobalSettings.ResultsNumberEachBlock = chosen.numberBlocks;
  GlobalSettings.ResultsBlockMarkers = chosen.useBlockMarkers;
  for (std::size_t i = 0; i < chosen.blockMarkers.size(); ++i)
    GlobalSettings.ResultsBlockIndicator[i + 1] = chosen.blockMarkers[i];
  GlobalSettings.ResultsLaunch = chosen.useBlockMarkers;
}

void frmExportResults::cmdOK_Click() {
  procedure("cmdOK_Click", [this] {
    std::string directory = outputDirectory();
    if (directory.ends_with('\\')) {
      directory.pop_back();
      ui_->txtOutputDirectory->setText(qtText(directory));
    }
    if (!basDirExists(directory)) {
      dialogs().messageBox("Directory " + directory + " doesn't exist");
      return;
    }
    if (!basWriteResultsFile(directory, outputFilename(), chosenLayout())) return;
    const std::string path = directory + "\\" + outputFilename();
    if (ui_->chkAutoLaunch->isChecked() && basFileExists(path)) launch(path);
    storeSettings();
    unload();
  });
}

void frmExportResults::cmdCancel_Click() {
  unload();
}

}  // namespace quernstoke::forms
