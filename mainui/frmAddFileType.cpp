#include "mainui/frmAddFileType.h"

#include <QShortcut>

#include "catalogue/extensions.h"
#include "controls/clickWatch.h"
#include "controls/controlAdapters.h"
#include "core/procedure.h"
#include "mainui/fileTypeLinks.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmAddFileType.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/fileTypesList.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr int allFiles = 1;  // A row of FileTypeTable.
constexpr int none = -1;

// The item that has the focus need not be the one that is selected.
int selectedPosition(const QListWidget& list) {
  const QModelIndexList selected = list.selectionModel()->selectedIndexes();
  return selected.isEmpty() ? none : selected.first().row();
}

// The toolkit would select a neighbour, which the next press of the button would take as well.
void removeItem(QListWidget& list, int position) {
  list.setCurrentRow(none);
  delete list.takeItem(position);
}

std::string itemText(const QListWidget& list, int position) {
  return engineText(list.item(position)->text());
}

std::string_view withoutStarAndDot(std::string_view extension) {
  for (const char prefix : {'*', '.'})
    if (extension.starts_with(prefix)) extension.remove_prefix(1);
  return extension;
}

// The first row without a description.
Int32 freeRow() {
  constexpr int growth = 50;
  Table<std::string>& descriptions = FileTypeTable.FileTypeDescription;
  Int32 row = 1;
  while (row <= descriptions.upperBound() && !descriptions[row].empty())
    ++row;
  // The lists of extensions don't grow along, so a row up there never gets one.
  if (row > descriptions.upperBound()) descriptions.redim(descriptions.upperBound() + growth, true);
  return row;
}

}  // namespace

frmAddFileType::frmAddFileType() : ui_(std::make_unique<Ui::frmAddFileType>()) {
  ui_->setupUi(this);
  QPushButton* const cmdAddorDelete[] = {ui_->cmdAddorDelete_0, ui_->cmdAddorDelete_1,
                                         ui_->cmdAddorDelete_2, ui_->cmdAddorDelete_3};
  for (int index = 0; index < 4; ++index)
    connect(cmdAddorDelete[index], &QAbstractButton::clicked, this,
            [this, index] { cmdAddorDelete_Click(index); });
  connect(ui_->cmdClose, &QAbstractButton::clicked, this, &frmAddFileType::cmdClose_Click);
  setCancelButton(*ui_->cmdClose);
  watchClicks(*ui_->lstDescription, [this] { lstDescription_Click(); });
  const auto onDoubleClick = [this](QListWidget* list, void (frmAddFileType::*handler)()) {
    connect(list, &QListWidget::itemDoubleClicked, this, handler);
    // The double click of those without a mouse.
    auto* const key = new QShortcut(Qt::Key_F2, list, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, handler);
  };
  onDoubleClick(ui_->lstDescription, &frmAddFileType::lstDescription_DblClick);
  onDoubleClick(ui_->lstFileExtensions, &frmAddFileType::lstFileExtensions_DblClick);
}

frmAddFileType::~frmAddFileType() = default;

void frmAddFileType::Form_Load() {
  procedure("Form_Load", [this] {
    const Int32 row = DialogValue;
    basBuildFileTypesList();
    const QtListBox list(ui_->lstDescription);
    if (row != none) ui_->lstDescription->setCurrentRow(basGetSetFileTypePos(list, row).raw());
  });
}

void frmAddFileType::basBuildFileTypesList() {
  QtListBox list(ui_->lstDescription);
  quernstoke::basBuildFileTypesList(list);
}

// Fails if none is selected.
Int32 frmAddFileType::selectedRow() const {
  const int position = selectedPosition(*ui_->lstDescription);
  if (position == none) fail(FailureNumber::invalidProcedureCall);
  return QtListBox(ui_->lstDescription).data(static_cast<std::int16_t>(position));
}

void frmAddFileType::lstDescription_Click() {
  procedure("lstDescription_Click", [this] {
    ui_->lstFileExtensions->clear();
    if (selectedPosition(*ui_->lstDescription) == none) return;
    Table<std::string> extensions;
    basBuildExtensionList(FileTypeTable.FileTypesList[selectedRow()], extensions);
    for (Int32 slot = 0; slot <= extensions.upperBound(); ++slot)
      if (!extensions[slot].empty())
        ui_->lstFileExtensions->addItem(qtText("*." + extensions[slot]));
  });
}

void frmAddFileType::lstDescription_DblClick() {
  procedure("lstDescription_DblClick", [this] {
    const int position = selectedPosition(*ui_->lstDescription);
    if (position != none) basEditDescription(position);
  });
}

void frmAddFileType::lstFileExtensions_DblClick() {
  procedure("lstFileExtensions_DblClick", [this] {
    const int position = selectedPosition(*ui_->lstFileExtensions);
    if (position != none) basEditFileExtension(position);
  });
}

void frmAddFileType::cmdAddorDelete_Click(int index) {
  procedure("cmdAddorDelete_Click", [&] {
    switch (index) {
      case 0:
        return addType();
      case 1:
        return deleteType();
      case 2:
        return addExtension();
      default:
        return deleteExtension();
    }
  });
}

void frmAddFileType::addType() {
  constexpr const char* newItem = "New Item";
  const Int32 row = freeRow();
  FileTypeTable.FileTypeDescription[row] = newItem;
  QListWidget& list = *ui_->lstDescription;
  list.addItem(newItem);
  const int position = list.count() - 1;
  list.setCurrentRow(position);
  list.item(position)->setData(Qt::UserRole, row.raw());
  basEditDescription(position);
}

bool frmAddFileType::refusesRow(Int32 row) const {
  if (row != allFiles) return false;
  dialogs().messageBox("Can't delete the 'All files' file type");
  return true;
}

void frmAddFileType::deleteType() {
  const int position = selectedPosition(*ui_->lstDescription);
  if (position == none) return;
  const Int32 row = selectedRow();
  if (refusesRow(row)) return;
  if (const auto profile = profileLinkedTo(row)) {
    dialogs().messageBox("Can't delete file type as it's linked to profile '" + *profile + "'");
    return;
  }
  FileTypeTable.FileTypeDescription[row].clear();
  FileTypeTable.FileTypesList[row].clear();
  removeItem(*ui_->lstDescription, position);
}

void frmAddFileType::addExtension() {
  QListWidget& list = *ui_->lstFileExtensions;
  list.addItem("*.???");
  basEditFileExtension(list.count() - 1);
}

void frmAddFileType::deleteExtension() {
  const int position = selectedPosition(*ui_->lstFileExtensions);
  if (position == none || refusesRow(selectedRow())) return;
  removeItem(*ui_->lstFileExtensions, position);
  basRebuildExtensionList();
}

void frmAddFileType::basEditDescription(int position) {
  procedure("basEditDescription", [&] {
    QListWidget& list = *ui_->lstDescription;
    const std::string entered =
        dialogs().inputBox("Enter new Description", "", itemText(list, position));
    if (entered.empty()) return;
    FileTypeTable.FileTypeDescription[selectedRow()] = entered;
    list.item(position)->setText(qtText(entered));
  });
}

void frmAddFileType::basEditFileExtension(int position) {
  procedure("basEditFileExtension", [&] {
    QListWidget& list = *ui_->lstFileExtensions;
    const std::string entered =
        dialogs().inputBox("Enter new file type", "", itemText(list, position));
    if (entered.empty()) return;
    list.item(position)->setText(qtText("*." + std::string(withoutStarAndDot(entered))));
    basRebuildExtensionList();
  });
}

void frmAddFileType::basRebuildExtensionList() {
  procedure("basRebuildExtensionList", [this] {
    const QListWidget& list = *ui_->lstFileExtensions;
    std::string joined;
    for (int position = 0; position < list.count(); ++position)
      joined += itemText(list, position) + ";";
    if (!joined.empty()) joined.pop_back();
    FileTypeTable.FileTypesList[selectedRow()] = joined;
  });
}

void frmAddFileType::cmdClose_Click() {
  procedureGoingOn(
      "cmdClose_Click",
      [this] {
        const bool isSelected = selectedPosition(*ui_->lstDescription) != none;
        DialogValue = isSelected ? selectedRow() : Int32(none);
      },
      [this] { unload(); });
}

}  // namespace quernstoke::forms
