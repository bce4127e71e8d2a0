#include "mainui/frmGetDirName.h"

#include <algorithm>

#include "controls/controlAdapters.h"
#include "controls/wheelGuard.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmGetDirName.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/fileTypesList.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

enum : std::uint8_t { include, exclude, excludePair, optionCount };

constexpr std::array<const char*, optionCount> kindOfOption = {"I", "E", "1"};

// The item that a list with a text field shows; -1 once something else was typed.
int selectedItem(const QComboBox& list) {
  const int item = list.currentIndex();
  return item >= 0 && list.itemText(item) == list.currentText() ? item : -1;
}

// Also brings its text back into the field, where it may have been typed over.
void selectItem(QComboBox& list, int item) {
  list.setCurrentIndex(-1);
  list.setCurrentIndex(item);
}

// The fields behind them begin below each other.
void makeEquallyWide(std::initializer_list<QLabel*> labels) {
  int width = 0;
  for (const QLabel* label : labels)
    width = std::max(width, label->sizeHint().width());
  for (QLabel* label : labels)
    label->setMinimumWidth(width);
}

}  // namespace

frmGetDirName::frmGetDirName() : ui_(std::make_unique<Ui::frmGetDirName>()) {
  ui_->setupUi(this);
  optIncludeExclude_ = {ui_->optIncludeExclude_0, ui_->optIncludeExclude_1,
                        ui_->optIncludeExclude_2};
  txtDirectory_ = {ui_->txtDirectory_0, ui_->txtDirectory_1};
  for (QRadioButton* option : optIncludeExclude_)
    connect(option, &QRadioButton::toggled, this, [this](bool selected) {
      if (selected) optIncludeExclude_Click();
    });
  connect(ui_->cmdBrowse_0, &QAbstractButton::clicked, this, [this] { cmdBrowse_Click(0); });
  connect(ui_->cmdBrowse_1, &QAbstractButton::clicked, this, [this] { cmdBrowse_Click(1); });
  connect(ui_->cmdEditTypes, &QAbstractButton::clicked, this, &frmGetDirName::cmdEditTypes_Click);
  connect(ui_->cmdOK, &QAbstractButton::clicked, this, &frmGetDirName::cmdOK_Click);
  connect(ui_->cmdCancel, &QAbstractButton::clicked, this, &frmGetDirName::cmdCancel_Click);
  setCancelButton(*ui_->cmdCancel);
  ui_->cboFileTypeList->setCompleter(nullptr);  // What is typed stands as it is.
  guardFromWheel(*ui_->cboFileTypeList);
  makeEquallyWide({ui_->labDirectory_0, ui_->labDirectory_1, ui_->labFileTypes});
}

frmGetDirName::~frmGetDirName() = default;

void frmGetDirName::Form_Load() {
  procedure("Form_Load", [this] {
    editRow_ = DialogValue;
    addMode_ = DialogValue == -1;
    // A pair is edited from its upper half.
    if (!addMode_ && ProfileDirList[editRow_].IncludeExclude == "2") --editRow_;
    QtComboBox list(ui_->cboFileTypeList);
    basBuildFileTypesList(list);
    basUpdateControls();
  });
}

bool frmGetDirName::isSelected(int option) const {
  return optIncludeExclude_[static_cast<std::size_t>(option)]->isChecked();
}

void frmGetDirName::basUpdateControls() {
  procedure("basUpdateControls", [this] {
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->cboFileTypeList, ui_->labFileTypes,
                                                            ui_->cmdEditTypes})
      control->setVisible(isSelected(include));
    ui_->fraDir2->setVisible(isSelected(excludePair));
    if (addMode_) {
      for (QRadioButton* option : optIncludeExclude_)
        option->setEnabled(true);
      selectItem(*ui_->cboFileTypeList, 0);
    } else {
      showSlot();
    }
  });
}

void frmGetDirName::showSlot() {
  const DirSpec& spec = ProfileDirList[editRow_];
  txtDirectory_[0]->setText(qtText(spec.Dir));
  if (isSelected(excludePair)) txtDirectory_[1]->setText(qtText(ProfileDirList[editRow_ + 1].Dir));
  ui_->chkScanSubdir->setChecked(spec.RecurseSubDirs);
  const auto kind = std::find(kindOfOption.begin(), kindOfOption.end(), spec.IncludeExclude);
  selectOption(static_cast<int>(kind - kindOfOption.begin()));
  showFileTypes(spec.IncludeExtensions);
  for (QRadioButton* option : optIncludeExclude_)
    option->setEnabled(false);
}

// Selects none for a number that is no option.
void frmGetDirName::selectOption(int option) {
  for (int i = 0; i < optionCount; ++i) {
    QRadioButton* const button = optIncludeExclude_[static_cast<std::size_t>(i)];
    button->setAutoExclusive(false);
    button->setChecked(i == option);
    button->setAutoExclusive(true);
  }
}

void frmGetDirName::showFileTypes(const std::string& extensions) {
  if (isNumeric(extensions)) {
    const QtComboBox list(ui_->cboFileTypeList);
    selectItem(*ui_->cboFileTypeList, basGetSetFileTypePos(list, toNumber(extensions)).raw());
  } else {
    ui_->cboFileTypeList->setCurrentIndex(-1);
    ui_->cboFileTypeList->setEditText(qtText(extensions));
  }
}

void frmGetDirName::optIncludeExclude_Click() {
  procedure("optIncludeExclude_Click", [this] {
    if (!addMode_) {
      for (int option = 0; option < optionCount; ++option)
        if (isSelected(option))
          ProfileDirList[editRow_].IncludeExclude = kindOfOption[static_cast<std::size_t>(option)];
      if (isSelected(excludePair)) ProfileDirList[editRow_ + 1].IncludeExclude = "2";
    }
    basUpdateControls();
  });
}

void frmGetDirName::cmdBrowse_Click(int index) {
  procedure("cmdBrowse_Click", [&] {
    QLineEdit* const field = txtDirectory_[static_cast<std::size_t>(index)];
    DialogText = enteredText(field->text());
    modalForms.frmDirTree();
    if (!DialogText.empty()) field->setText(qtText(DialogText));
  });
}

void frmGetDirName::cmdEditTypes_Click() {
  procedure("cmdEditTypes_Click", [this] {
    QComboBox& types = *ui_->cboFileTypeList;
    DialogText = enteredText(types.currentText());
    const int selected = selectedItem(types);
    DialogValue = selected < 0 ? -1 : types.itemData(selected).toInt();
    modalForms.frmAddFileType();
    QtComboBox list(&types);
    basBuildFileTypesList(list);
    selectItem(types, DialogValue == -1 ? 0 : types.findData(DialogValue.raw()));
  });
}

// Stays at a field whose directory is not there.
bool frmGetDirName::directoryExists(int index) {
  QLineEdit* const field = txtDirectory_[static_cast<std::size_t>(index)];
  const std::string path = enteredText(field->text());
  if (basDirExists(path)) return true;
  dialogs().messageBox("Directory " + path + " doesn't exist");
  field->setFocus();
  return false;
}

void frmGetDirName::cmdOK_Click() {
  procedure("cmdOK_Click", [this] {
    if (enteredText(txtDirectory_[0]->text()).empty()) {
      DialogValue = -1;
      unload();
      return;
    }
    if (!directoryExists(0)) return;
    if (isSelected(excludePair) && !directoryExists(1)) return;
    basSaveValues();
    unload();
  });
}

void frmGetDirName::cmdCancel_Click() {
  DialogValue = -1;
  unload();
}

// The row of the file types chosen, or what was typed.
std::string frmGetDirName::fileTypesToSave() {
  const QComboBox& types = *ui_->cboFileTypeList;
  const std::string typed = enteredText(types.currentText());
  int selected = selectedItem(types);
  for (Int32 row = 1; selected < 0 && row <= FileTypeTable.FileTypesList.upperBound(); ++row)
    if (FileTypeTable.FileTypesList[row] == typed) selected = (row - 1).raw();
  if (selected >= types.count()) fail(FailureNumber::invalidProcedureCall);
  return selected < 0 ? typed : toText(Int32(types.itemData(selected).toInt()));
}

void frmGetDirName::basSaveValues() {
  procedure("basSaveValues", [this] {
    const Int32 slot = addMode_ ? firstFreeDirSlot() : editRow_;
    DirSpec& spec = ProfileDirList[slot];
    spec.Dir = enteredText(txtDirectory_[0]->text());
    spec.RecurseSubDirs = ui_->chkScanSubdir->isChecked();
    for (int option = 0; option < optionCount; ++option)
      if (isSelected(option)) spec.IncludeExclude = kindOfOption[static_cast<std::size_t>(option)];
    if (isSelected(excludePair)) {
      DirSpec& partner = ProfileDirList[slot + 1];
      partner.IncludeExclude = "2";
      partner.Dir = enteredText(txtDirectory_[1]->text());
      partner.RecurseSubDirs = spec.RecurseSubDirs;
    }
    if (spec.IncludeExclude == "I")
      spec.IncludeExtensions = fileTypesToSave();
    else
      spec.IncludeExtensions.clear();
  });
}

}  // namespace quernstoke::forms
