#include "mainui/frmDirTree.h"

#include <QSignalBlocker>

#include "catalogue/fullFilePath.h"
#include "controls/units.h"
#include "controls/wheelGuard.h"
#include "core/helpers.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/modDirTree.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmDirTree.h"
#include "pictures/pictures.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"

namespace quernstoke::forms {

namespace {

constexpr int fileListMode = 1;      // Of DialogValue.
constexpr int besideControls = 100;  // Twips.

ImageList ImageList1() {
  ImageList images;
  for (const char* name : {"Close", "Drive", "Open"})
    images[name] = picture(name);
  return images;
}

}  // namespace

frmDirTree::frmDirTree() : ui_(std::make_unique<Ui::frmDirTree>()) {
  ui_->setupUi(this);
  connect(ui_->drvDrive, &QComboBox::currentIndexChanged, this, &frmDirTree::drvDrive_Change);
  connect(ui_->treeDir, &TreeView::nodeClick, this,
          [this](TreeNode* node) { treeDir_NodeClick(*node); });
  ui_->treeDir->tree().onExpand = [this](TreeNode& node) { treeDir_Expand(node); };
  connect(ui_->cmdOK, &QAbstractButton::clicked, this, &frmDirTree::cmdOK_Click);
  connect(ui_->cmdCancel, &QAbstractButton::clicked, this, &frmDirTree::cmdCancel_Click);
  setCancelButton(*ui_->cmdCancel);
  guardFromWheel(*ui_->drvDrive);
  ui_->treeDir->setFocus();
}

frmDirTree::~frmDirTree() = default;

void frmDirTree::Form_Load() {
  procedure("Form_Load", [this] {
    fillDrives();
    TreeModel& tree = ui_->treeDir->tree();
    ui_->treeDir->setImageList(ImageList1());
    SelectedDir = startDirectory();
    showPath();
    // A change of the drive fills the tree.
    setDrive(SelectedDir);
    if (tree.isEmpty()) basLoadDirList(tree, driveText(), SelectedDir);
    if (DialogValue == fileListMode && tree.selected() != nullptr)
      setFileListPath(fullPath(*tree.selected()));
  });
}

std::string frmDirTree::startDirectory() const {
  std::string directory = DialogText;
  if (DialogValue == fileListMode) {
    std::string name;
    basGetFilePath(DialogText, name, directory);
    if (directory.find('\\') == std::string::npos) directory = AppPath;
  }
  return directory.empty() ? "c:\\" : directory;
}

void frmDirTree::fillDrives() {
  const QSignalBlocker noChange(ui_->drvDrive);
  for (const std::string& drive : desktop().drives())
    ui_->drvDrive->addItem(qtText(drive));
}

std::string frmDirTree::driveText() const {
  return engineText(ui_->drvDrive->currentText());
}

// A path of no drive that there is leaves the drive as it is.
void frmDirTree::setDrive(const std::string& path) {
  for (int i = 0; i < ui_->drvDrive->count(); ++i)
    if (equalIgnoringCase(driveOf(engineText(ui_->drvDrive->itemText(i))), driveOf(path)))
      ui_->drvDrive->setCurrentIndex(i);
}

void frmDirTree::showPath() {
  const int width = twipsFromPixels(ui_->labPath->width());
  ui_->labPath->setText(qtText(basBuildFullFilePath(width, SelectedDir, "", *ui_->labSizer)));
}

// As wide as the mode needs.
void frmDirTree::Form_Activate() {
  procedure("Form_Activate", [this] {
    const bool showsFiles = DialogValue == fileListMode;
    ui_->File1->setVisible(showsFiles);
    layout()->activate();
    const QWidget& last = showsFiles ? static_cast<QWidget&>(*ui_->File1) : *ui_->treeDir;
    setFixedWidth(ui_->treeDir->x() + last.x() + last.width() + pixelsFromTwips(besideControls));
  });
}

void frmDirTree::drvDrive_Change() {
  procedure("drvDrive_Change", [this] {
    clearTree();
    SelectedDir = driveOf(driveText());
    basLoadDirList(ui_->treeDir->tree(), driveText(), SelectedDir);
    ui_->labPath->setText(qtText(SelectedDir));
  });
}

void frmDirTree::treeDir_Expand(TreeNode& node) {
  procedure("treeDir_Expand", [&] { basLoadTreeNode(ui_->treeDir->tree(), node.key, 0, node); });
}

void frmDirTree::treeDir_NodeClick(TreeNode& node) {
  procedure("treeDir_NodeClick", [&] {
    SelectedDir = fullPath(node);
    ignoringFailure([this] { setFileListPath(SelectedDir); });
    node.selectedImage = "Open";
    showPath();
  });
}

// Keeps what it shows if the directory can't be read.
void frmDirTree::setFileListPath(const std::string& path) {
  const std::string patterns = engineText(ui_->File1->property("pattern").toString());
  const std::vector<std::string> names = fileListNames(path, patterns);
  ui_->File1->clear();
  for (const std::string& name : names)
    ui_->File1->addItem(qtText(name));
}

void frmDirTree::clearTree() {
  TreeModel& tree = ui_->treeDir->tree();
  if (!tree.isEmpty()) tree.clear();
}

void frmDirTree::cmdOK_Click() {
  procedure("cmdOK_Click", [this] {
    DialogText = SelectedDir;
    unload();
  });
}

void frmDirTree::cmdCancel_Click() {
  procedureGoingOn(
      "cmdCancel_Click", [] { DialogText.clear(); }, [this] { clearTree(); }, [this] { unload(); });
}

void frmDirTree::Form_Unload() {
  procedureGoingOn("Form_Unload", [this] { clearTree(); });
}

}  // namespace quernstoke::forms
