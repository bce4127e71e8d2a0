#include "mainui/frmGetDirName.h"

#include <algorithm>

#include "controls/controlAdapters.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/modalForms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/fileTypesList.h"
#include "settings/settings.h"
#include "ui_frmGetDirName.h"

namespace quernstoke::forms {

namespace {

enum : std::uint8_t { include, exclude, excludePair, optionCount };

constexpr std::array<const char*, optionCount> kindOfOption = {"I", "E", "1"};

int itemData(const QComboBox* list) {
  return list->currentIndex() < 0 ? -1 : list->currentData().toInt();
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
}

frmGetDirName::~frmGetDirName() = default;

void frmGetDirName::Form_Load() {
  procedure("Form_Load", [this] {
    editRow_ = DialogValue;
    addMode_ = DialogValue == -1;
    // A pair is edited from its upper half.
    if (!addMode_ && ProfileDirList[editRow_].IncludeExclude == "2") --editRow_;
    QtList list(ui_->cboFileTypeList);
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
      ui_->cboFileTypeList->setCurrentIndex(0);
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
    const QtList list(ui_->cboFileTypeList);
    ui_->cboFileTypeList->setCurrentIndex(basGetSetFileTypePos(list, toNumber(extensions)).raw());
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
    DialogText = field->text().toStdString();
    modalForms.frmDirTree();
    if (!DialogText.empty()) field->setText(qtText(DialogText));
  });
}

void frmGetDirName::cmdEditTypes_Click() {
  procedure("cmdEditTypes_Click", [this] {
    QComboBox* const types = ui_->cboFileTypeList;
    DialogText = types->currentText().toStdString();
    DialogValue = itemData(types);
    modalForms.frmAddFileType();
    QtList list(types);
    basBuildFileTypesList(list);
    const int position = types->findData(DialogValue.raw());
    types->setCurrentIndex(DialogValue == -1 ? 0 : position);
  });
}

// Stays at a field whose directory is not there.
bool frmGetDirName::directoryExists(int index) {
  QLineEdit* const field = txtDirectory_[static_cast<std::size_t>(index)];
  const std::string path = field->text().toStdString();
  if (basDirExists(path)) return true;
  dialogs().messageBox("Directory " + path + " doesn't exist");
  field->setFocus();
  return false;
}

void frmGetDirName::cmdOK_Click() {
  procedure("cmdOK_Click", [this] {
    if (txtDirectory_[0]->text().isEmpty()) {
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

// The slot of the entry; when one is added the first free one, for which the table may grow.
Int32 frmGetDirName::slotToWrite() {
  if (!addMode_) return editRow_;
  constexpr int growth = 65;
  Int32 slot = 1;
  while (slot <= ProfileDirList.upperBound() && !ProfileDirList[slot].Dir.empty())
    ++slot;
  if (slot > ProfileDirList.upperBound()) ProfileDirList.redim(slot + growth, true);
  return slot;
}

// The row of the file types chosen, or what was typed.
std::string frmGetDirName::fileTypesToSave() {
  QComboBox* const types = ui_->cboFileTypeList;
  const std::string typed = types->currentText().toStdString();
  const bool isItem =
      types->currentIndex() >= 0 && types->currentText() == types->itemText(types->currentIndex());
  if (!isItem) {
    types->setCurrentIndex(-1);
    for (Int32 row = 1; row <= FileTypeTable.FileTypesList.upperBound(); ++row) {
      if (FileTypeTable.FileTypesList[row] != typed) continue;
      if (row > types->count()) fail(FailureNumber::invalidProcedureCall);
      types->setCurrentIndex((row - 1).raw());
      break;
    }
  }
  return types->currentIndex() >= 0 ? toText(Int32(itemData(types))) : typed;
}

void frmGetDirName::basSaveValues() {
  procedure("basSaveValues", [this] {
    const Int32 slot = slotToWrite();
    DirSpec& spec = ProfileDirList[slot];
    spec.Dir = txtDirectory_[0]->text().toStdString();
    spec.RecurseSubDirs = ui_->chkScanSubdir->isChecked();
    for (int option = 0; option < optionCount; ++option)
      if (isSelected(option)) spec.IncludeExclude = kindOfOption[static_cast<std::size_t>(option)];
    if (isSelected(excludePair)) {
      DirSpec& partner = ProfileDirList[slot + 1];
      partner.IncludeExclude = "2";
      partner.Dir = txtDirectory_[1]->text().toStdString();
      partner.RecurseSubDirs = spec.RecurseSubDirs;
    }
    if (spec.IncludeExclude == "I")
      spec.IncludeExtensions = fileTypesToSave();
    else
      spec.IncludeExtensions.clear();
  });
}

}  // namespace quernstoke::forms
