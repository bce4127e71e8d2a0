// The settings of the main window: from memory to the controls and back, and the rules of the
// fields.

#include <QKeyEvent>
#include <cmath>
#include <functional>
#include <vector>

#include "controls/controlAdapters.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/scanDriver.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmMain.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/locale.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr std::string_view optionLetters = "NCS";  // Of chkMatchingOption, in its order.

std::string textOf(const QLineEdit* field) {
  return enteredText(field->text());
}

std::string textOf(const QComboBox* list) {
  return engineText(list->currentText());
}

void display(QLineEdit* field, std::string_view text) {
  field->setText(qtText(text));
}

void display(QLineEdit* field, Int32 number) {
  field->setText(QString::number(number.raw()));
}

// Fails for a text that is not in the list.
void select(QComboBox* list, std::string_view text) {
  const int position = list->findText(qtText(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (position < 0) fail(FailureNumber::invalidProcedureCall);
  list->setCurrentIndex(position);
}

using Bounds = std::vector<std::pair<std::function<bool(Int32)>, const char*>>;

// What is wrong with the text of a number field; null if nothing is. Fails with an overflow for a
// number that no setting can hold.
const char* objection(const std::string& text, const char* notNumeric, const Bounds& bounds) {
  if (!isNumeric(text)) return notNumeric;
  for (const auto& [refuses, message] : bounds)
    if (refuses(toNumber(text))) return message;
  return nullptr;
}

FieldRules::Rule numberRule(const char* name, const QLineEdit* field, const char* notNumeric,
                            const Bounds& bounds = {}) {
  return [=] {
    auto verdict = FieldRules::Verdict::leaveAfterBox;  // After that of a failure.
    procedure(name, [&] {
      const char* const message = objection(textOf(field), notNumeric, bounds);
      verdict = message == nullptr ? FieldRules::Verdict::leave : FieldRules::Verdict::stay;
      if (message != nullptr) dialogs().messageBox(message);
    });
    return verdict;
  };
}

auto below(int bound) {
  return [=](Int32 number) { return number < bound; };
}

auto above(int bound) {
  return [=](Int32 number) { return number > bound; };
}

// A number with one decimal, a half upwards, and the person's decimal point.
std::string withOneDecimal(double number) {
  const auto tenths = static_cast<std::int64_t>(std::floor(number * 10 + 0.5));
  return std::to_string(tenths / 10) + userLocale().decimalPoint() + std::to_string(tenths % 10);
}

}  // namespace

void frmMain::basUpdateProfileObjects(std::string_view profileName) {
  procedure("basUpdateProfileObjects", [&] {
    const bool hasProfile = !profileName.empty();
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->txtDescription, ui_->fraWhatToScan, ui_->chkZip, chkScanHiddenSystem_[0],
             chkScanHiddenSystem_[1], chkMatchingOption_[0], chkMatchingOption_[1],
             chkMatchingOption_[2]})
      control->setEnabled(hasProfile);
    for (QCheckBox* option : chkMatchingOption_)
      option->setChecked(false);
    // After the options, so that a scan can be started though none of them is ticked.
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->cmdDeleteProfile, ui_->cmdStart, ui_->fraStartMode, cboSizeMeasure_[0],
             cboSizeMeasure_[1], ui_->txtMinimumSize, ui_->txtMaximumSize})
      control->setEnabled(hasProfile);
    if (hasProfile) {
      fillProfileControls();
    } else {
      allocateProfileDirList();
      ui_->txtDescription->clear();
    }
    basUpdateDirGrid();
    QtFrame startModes(ui_->fraStartMode);
    QtOption fresh(optStartModes_[0]);
    QtOption continued(optStartModes_[1]);
    basUpdateStateOptions(startModes, fresh, continued);
  });
}

void frmMain::fillProfileControls() {
  display(ui_->txtDescription, ProfileSettings.Desc);
  ui_->chkZip->setChecked(ProfileSettings.ProcessZip);
  chkScanHiddenSystem_[0]->setChecked(ProfileSettings.ScanHiddenFiles);
  chkScanHiddenSystem_[1]->setChecked(ProfileSettings.ScanSystemFiles);
  ui_->chkSlowNetwork->setChecked(ProfileSettings.SlowNetwork);
  // Only the first letter comes back: a combination with a name narrows to the name.
  for (std::size_t option = 0; option < optionLetters.size(); ++option)
    if (ProfileSettings.MatchingCriteria.starts_with(optionLetters[option]))
      chkMatchingOption_[option]->setChecked(true);
  display(ui_->txtContentMatchingPercent, ProfileSettings.ContentMatchingPercent);
  display(ui_->txtMinimumSize, ProfileSettings.MinimumSize);
  select(cboSizeMeasure_[0], ProfileSettings.MinimumSizeMeasure);
  display(ui_->txtMaximumSize, ProfileSettings.MaximumSize);
  select(cboSizeMeasure_[1], ProfileSettings.MaximumSizeMeasure);
}

void frmMain::basUpdateGlobalObjects(bool fill) {
  procedure("basUpdateGlobalObjects", [&] {
    if (fill) fillGlobalControls();
    TempDir = textOf(ui_->txtTempPath);
    basUpdateBufferMemoryLabel();
  });
}

void frmMain::fillGlobalControls() {
  display(ui_->txtNumberOfFileBuffers, GlobalSettings.NumberOfFileBuffers);
  display(ui_->txtFileBufferSize, GlobalSettings.FileBufferSize);
  ui_->chkTransferLocally->setChecked(GlobalSettings.TransferFileLocally);
  display(ui_->txtMaxDiskSpace, GlobalSettings.TransferMaxDiskSpace);
  select(cboSizeMeasure_[2], GlobalSettings.TransferMaxDiskSpaceMeasure);
  display(ui_->txtTempPath, GlobalSettings.TempPath);
}

void frmMain::basSaveControlValues(std::string_view kind) {
  procedure("basSaveControlValues", [&] {
    if (!ProfileName.empty() && (kind == "PROFILE" || kind.empty())) saveProfileControls();
    if (kind == "GLOBAL" || kind.empty()) saveGlobalControls();
  });
}

void frmMain::saveProfileControls() {
  ProfileSettings.Desc = textOf(ui_->txtDescription);
  ProfileSettings.ProcessZip = ui_->chkZip->isChecked();
  ProfileSettings.ScanHiddenFiles = chkScanHiddenSystem_[0]->isChecked();
  ProfileSettings.ScanSystemFiles = chkScanHiddenSystem_[1]->isChecked();
  ProfileSettings.SlowNetwork = ui_->chkSlowNetwork->isChecked();
  ProfileSettings.MatchingCriteria.clear();
  for (std::size_t option = 0; option < optionLetters.size(); ++option)
    if (chkMatchingOption_[option]->isChecked())
      ProfileSettings.MatchingCriteria += optionLetters[option];
  ProfileSettings.ContentMatchingPercent = toNumber(textOf(ui_->txtContentMatchingPercent));
  ProfileSettings.MinimumSize = toNumber(textOf(ui_->txtMinimumSize));
  ProfileSettings.MinimumSizeMeasure = textOf(cboSizeMeasure_[0]);
  ProfileSettings.MaximumSize = toNumber(textOf(ui_->txtMaximumSize));
  ProfileSettings.MaximumSizeMeasure = textOf(cboSizeMeasure_[1]);
}

void frmMain::saveGlobalControls() {
  GlobalSettings.NumberOfFileBuffers = toNumber(textOf(ui_->txtNumberOfFileBuffers));
  GlobalSettings.FileBufferSize = toNumber(textOf(ui_->txtFileBufferSize));
  GlobalSettings.TransferFileLocally = ui_->chkTransferLocally->isChecked();
  GlobalSettings.TransferMaxDiskSpace = toNumber(textOf(ui_->txtMaxDiskSpace));
  GlobalSettings.TransferMaxDiskSpaceMeasure = textOf(cboSizeMeasure_[2]);
  GlobalSettings.TempPath = textOf(ui_->txtTempPath);
}

void frmMain::chkMatchingOption_Click(int index) {
  procedure("chkMatchingOption_Click", [&] {
    enum : std::uint8_t { content = 1, size = 2 };
    if (index == size && !chkMatchingOption_[size]->isEnabled()) return;
    if (index == content) {
      const bool ticked = chkMatchingOption_[content]->isChecked();
      chkMatchingOption_[size]->setEnabled(!ticked);
      ui_->chkSlowNetwork->setEnabled(ticked);
      ui_->txtContentMatchingPercent->setEnabled(ticked);
      chkMatchingOption_[size]->setChecked(ticked);
    }
    if (index == size)
      chkMatchingOption_[content]->setEnabled(!chkMatchingOption_[size]->isChecked());
    ui_->cmdStart->setEnabled(tickedOptions() != 0);
    updateHelp();
  });
}

Int32 frmMain::tickedOptions() const {
  Int32 ticked = 0;
  for (const QCheckBox* option : chkMatchingOption_)
    if (option->isChecked()) ++ticked;
  return ticked;
}

void frmMain::basUpdateBufferMemoryLabel() {
  procedure("basUpdateBufferMemoryLabel", [this] {
    const std::string size = textOf(ui_->txtFileBufferSize);
    const std::string count = textOf(ui_->txtNumberOfFileBuffers);
    if (!isNumeric(size) || toNumber(size) < 1 || !isNumeric(count) || toNumber(count) < 1) return;
    const double megabytes = toNumber(size).raw() / 1024.0 / 1024.0 * toNumber(count).raw();
    ui_->labBufferSizeMB->setText(qtText(withOneDecimal(megabytes) + "MB"));
  });
}

void frmMain::cmdBrowse_Click() {
  procedure("cmdBrowse_Click", [this] {
    DialogValue = 0;
    DialogText = textOf(ui_->txtTempPath);
    modalForms.frmDirTree();
    if (!DialogText.empty()) display(ui_->txtTempPath, DialogText);
  });
}

void frmMain::cmdEditFileTypes_Click() {
  procedure("cmdEditFileTypes_Click", [] { modalForms.frmAddFileType(); });
}

void frmMain::chkTransferLocally_Click() {
  procedure("chkTransferLocally_Click", [this] { basUpdateGlobalObjects(false); });
}

void frmMain::addFieldRules() {
  constexpr const char* percent = "Content matching percent must be between 50 and 100";
  const auto add = [this](QLineEdit* field, const char* name, const char* notNumeric,
                          const Bounds& bounds = {}) {
    rules_->add(field, numberRule(name, field, notNumeric, bounds));
  };
  add(ui_->txtContentMatchingPercent, "txtContentMatchingPercent_LostFocus", percent,
      {{below(50), percent}, {above(100), percent}});
  add(ui_->txtFileBufferSize, "txtFileBufferSize_Validate", "File buffer size must be numeric",
      {{below(256), "You must have a file buffer >= 256"},
       {above(32768), "You must have a file buffer <  32768"}});
  add(ui_->txtNumberOfFileBuffers, "txtNumberOfFileBuffers_Validate",
      "Number of buffers must be numeric",
      {{below(1), "You must have a file buffer > 0"},
       {above(100000), "You must have a file buffer <  100000"}});
  add(ui_->txtMaxDiskSpace, "txtMaxDiskSpace_Validate", "Maximum disk space size must be numeric");
  add(ui_->txtMaximumSize, "txtMaximumSize_Validate", "Maximum size must be numeric",
      {{below(1), "Maximum size must be greater then 0"}});
  add(ui_->txtMinimumSize, "txtMinimumSize_Validate", "Minimum size must be numeric",
      {{below(0), "Minimum size must not be less than 0"}});
  for (QComboBox* measure : cboSizeMeasure_)
    rules_->add(measure, [measure] {
      if (measure->currentIndex() >= 0) return FieldRules::Verdict::leave;
      dialogs().messageBox("Must specify a Size measure");
      return FieldRules::Verdict::stay;
    });
  rules_->add(ui_->txtTempPath, [this] { return txtTempPath_LostFocus(); });
  ui_->txtContentMatchingPercent->installEventFilter(this);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->txtContentMatchingPercent && event->type() == QEvent::KeyPress)
    return txtContentMatchingPercent_KeyPress(*static_cast<QKeyEvent*>(event));
  return Form::eventFilter(watched, event);
}

// Digits alone are taken; the keys that move or leave have no text, or are listed here.
bool frmMain::txtContentMatchingPercent_KeyPress(const QKeyEvent& press) {
  switch (press.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Delete:
      return false;
    default:
      return !press.text().isEmpty() && (press.text()[0] < u'0' || press.text()[0] > u'9');
  }
}

FieldRules::Verdict frmMain::txtTempPath_LostFocus() {
  auto verdict = FieldRules::Verdict::leaveAfterBox;  // After that of a directory not made, too.
  procedure("txtTempPath_LostFocus", [&] {
    std::string path = textOf(ui_->txtTempPath);
    if (path.ends_with('\\')) {
      path.pop_back();
      display(ui_->txtTempPath, path);
    }
    if (basDirExists(path)) {
      verdict = FieldRules::Verdict::leave;
      return;
    }
    const Answer answer =
        dialogs().messageBox("\"" + path + "\" does not exists. Create it?", Buttons::yesNo);
    if (answer == Answer::yes)
      files().makeDirectory(path);
    else
      verdict = FieldRules::Verdict::stay;
  });
  return verdict;
}

}  // namespace quernstoke::forms
