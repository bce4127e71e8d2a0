#include "results/frmResults.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>
#include <functional>
#include <utility>

#include "controls/controlAdapters.h"
#include "controls/flexGrid.h"
#include "controls/helpWatch.h"
#include "controls/measuringLabel.h"
#include "controls/panelStatusBar.h"
#include "controls/units.h"
#include "controls/wheelGuard.h"
#include "core/procedure.h"
#include "mainui/modalForms.h"
#include "mainui/quickHelp.h"
#include "pictures/pictures.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "platform/windows.h"
#include "results/fileActions.h"
#include "results/gridPaging.h"
#include "results/gridScrolling.h"
#include "results/gridSelection.h"
#include "results/gridWidths.h"
#include "results/resultsGrid.h"
#include "results/resultsWindow.h"
#include "ui_frmResults.h"

namespace quernstoke::forms {

namespace {

constexpr int statusPanelCount = 7;

void tellFiltersAreToCome() {
  dialogs().messageBox("Filters can't be set yet");
}
void tellDirectoryMatchIsToCome() {
  dialogs().messageBox("Directories can't be matched yet");
}

// Selects an entry as the program's own doing.
template <class Handler>
void selectUnheeded(QComboBox& list, int index, Handler handler) {
  setTag(list, ignoreTag);
  list.setCurrentIndex(index);
  handler();
}

void addItem(QMenu& menu, const char* name, const QString& text,
             const std::function<void()>& handler) {
  QAction* const item = menu.addAction(text);
  item->setObjectName(name);
  QObject::connect(item, &QAction::triggered, &menu, handler);
}

}  // namespace

// Says by its picture whether the columns are fitted.
class AutoResizeButton : public PictureButtonControl {
 public:
  explicit AutoResizeButton(QPushButton* button) : button_(button) {}
  std::string tag() const override { return tagOf(*button_); }
  void setTag(std::string_view tag) override { quernstoke::setTag(*button_, tag); }
  void setPicture(std::string_view key) override {
    button_->setIcon(picture(key));
    button_->setAccessibleDescription(qtText(key));
  }

 private:
  QPushButton* button_;
};

frmResults::frmResults() : ui_(std::make_unique<Ui::frmResults>()) {
  ui_->setupUi(this);
  scrollBar_ = std::make_unique<QtScrollBar>(ui_->vscrGridMatches);
  autoResize_ = std::make_unique<AutoResizeButton>(ui_->cmdAutoResize);
  ui_->gridMatches->model().setScrollBars(
      ScrollBars::horizontal);  // The page is turned by vscrGridMatches.
  ui_->sbarStatus->setPanelCount(statusPanelCount);
  ui_->labNoDuplicates->hide();
  ui_->fraHelp->hide();
  for (QComboBox* list : {ui_->cboView, ui_->cboGroup})
    guardFromWheel(*list);
  stepByWheel(*ui_->vscrGridMatches);
  ui_->vscrGridMatches->setTracking(false);  // A page is filled where a drag ends.
  setCancelButton(*ui_->cmdClose);
  preparePictures();
  makeMenus();
  connectControls();
  watchForHelp(*this, {ui_->picResultButtons, ui_->picActions},
               [this](int helpId) { displayHelp(helpId); });
  ui_->gridMatches->setFocus();
}

frmResults::~frmResults() = default;

void frmResults::connectControls() {
  const auto onClick = [this](QPushButton* button, auto handler) {
    connect(button, &QPushButton::clicked, this, handler);
  };
  onClick(ui_->cmdAutoResize, [this] { quernstoke::cmdAutoResize_Click(*this); });
  onClick(ui_->cmdFilter, tellFiltersAreToCome);
  onClick(ui_->cmdDeleteFile_0, [this] { cmdDeleteFile_Click(deletionMode::selected); });
  onClick(ui_->cmdDeleteFile_1, [this] { cmdDeleteFile_Click(deletionMode::ticked); });
  onClick(ui_->cmdOpenFile, [this] { basOpenFile(*this); });
  onClick(ui_->cmdOpenDir, [this] { basOpenDir(*this); });
  for (QPushButton* button : {ui_->cmdSetDir_0, ui_->cmdSetDir_1, ui_->cmdSetDir_2})
    onClick(button, tellDirectoryMatchIsToCome);
  onClick(ui_->cmdExport, [] { modalForms.frmExportResults(); });
  onClick(ui_->cmdClose, [this] { unload(); });
  onClick(ui_->cmdSHowHideHelp, &frmResults::cmdSHowHideHelp_Click);
  connect(ui_->cboView, &QComboBox::activated, this, &frmResults::cboView_Click);
  connect(ui_->cboGroup, &QComboBox::activated, this, &frmResults::cboGroup_Click);
  connect(ui_->vscrGridMatches, &QScrollBar::valueChanged, this, &frmResults::moveToScrollBar);
  connect(ui_->gridMatches, &FlexGrid::click, this, [this] { gridMatches_Click(*this); });
  connect(ui_->gridMatches, &FlexGrid::keyUp, this, [this](GridKey key) {
    if (!deleting_) gridMatches_KeyUp(*this, static_cast<int>(key));
  });
  connect(ui_->gridMatches, &FlexGrid::mouseDown, this, [this](GridButton button, int x, int y) {
    popUpAt(static_cast<int>(button), {x, y});
  });
}

void frmResults::preparePictures() {
  const auto add = [this](const char* name, QSize size, const QString& meaning = {}) {
    ui_->gridMatches->addPicture(name, picture(name), size, meaning);
  };
  // A tick lies low in its cell and no tick high. As high as the row, they don't dance.
  const int rowHeight = pixelsFromTwips(ui_->gridMatches->model().rowHeight(1).raw());
  add("SmallTick", {pictureSize("SmallTick").width(), rowHeight}, tr("ticked"));
  add("SmallUnTick", {pictureSize("SmallUnTick").width(), rowHeight}, tr("not ticked"));
  add("SimpleTick", pictureSize("SimpleTick"), tr("Tick"));
  add("BigTick1", pictureSize("BigTick1"), tr("ticked"));
  add("BigTick2", pictureSize("BigTick2"));
  add("BigUnTick1", pictureSize("BigUnTick1"), tr("not ticked"));
  add("BigUnTick2", pictureSize("BigUnTick2"));
  ui_->cmdOpenFile->setIcon(picture("OpenFile"));
  ui_->cmdOpenDir->setIcon(picture("Open"));
  ui_->cmdSetDir_0->setIcon(picture("SetDirectory1"));
  ui_->cmdSetDir_1->setIcon(picture("SetDirectory2"));
  ui_->cmdSetDir_2->setIcon(picture("DirectoryMatch"));
}

void frmResults::makeMenus() {
  const auto deleteSelected = [this] { cmdDeleteFile_Click(deletionMode::selected); };
  QMenu& single = *makeMenu("mnuRightClickSingleFile", tr("Right Click Single File"));
  addItem(single, "mnuOpenFile", tr("Open file"), [this] { basOpenFile(*this); });
  addItem(single, "mnuOpenDirectory", tr("Open container Directory"),
          [this] { basOpenDir(*this); });
  addItem(single, "mnuDeleteThisSelectedFile", tr("Delete this files"), deleteSelected);
  addItem(single, "mnuDeleteTickedFiles", tr("Delete all Ticked files"),
          [this] { cmdDeleteFile_Click(deletionMode::ticked); });
  addItem(single, "mnuFilterDirectory", tr("Filter File"), tellFiltersAreToCome);
  QMenu& several = *makeMenu("mnuRightClickMultpleFile", tr("Right Click Mulple File"));
  addItem(several, "mnuDeleteAllSelectedFiles", tr("Delete all Selected Files"), deleteSelected);
  menus_ = {&single, &several};
}

QMenu* frmResults::makeMenu(const char* name, const QString& title) {
  auto* const menu = new QMenu(title, this);
  menu->setObjectName(name);
  return menu;
}

// What the selection is would else change under a menu that is up.
void frmResults::closeMenus() {
  for (QMenu* menu : menus_)
    menu->close();
}

void frmResults::Form_Load() {
  procedure("Form_Load", [this] {
    ui_->cboView->addItems({"1 Line", "2 Lines"});
    ui_->cboGroup->addItems({"Match", "Directory"});
    selectUnheeded(*ui_->cboView, resultsView::oneLine, [this] { cboView_Click(); });
    selectUnheeded(*ui_->cboGroup, resultsGroup::match, [this] { cboGroup_Click(); });
    ResultsView = static_cast<std::int16_t>(ui_->cboView->currentIndex());
    ResultsGroup = static_cast<std::int16_t>(ui_->cboGroup->currentIndex());
    gridMatches().setColWidth(0, pictureWidth("SmallTick") + 100);
    showHelpPicture();
    cmdAutoResize().setPicture("On");
    cmdAutoResize().setTag("1");
    firstActivation_ = true;
    limitSize();
  });
}

void frmResults::Form_Activate() {
  procedure("Form_Activate", [this] {
    if (takeIgnoreTag(*this)) return;
    if (std::exchange(firstActivation_, false)) basPositionFormObjects(0);
  });
}

// A deletion counts on its page staying as it is while a message is up. The message holds off mouse
// and keyboard, but neither the desktop nor who works the controls in other ways.

bool frmResults::Form_QueryUnload(UnloadCause /*cause*/) {
  return !deleting_;
}

void frmResults::Form_Resize() {
  procedure("Form_Resize", [this] {
    resizeOwed_ = deleting_;
    if (deleting_ || takeIgnoreTag(*this)) return;
    if (shownState() == ShownState::minimised) return;
    basPositionFormObjects(static_cast<std::int16_t>(shownState()));
    ui_->picResultButtons->update();
  });
}

void frmResults::Form_Unload() {
  procedure("Form_Unload", [] {
    leaveResults();
    quernstoke::frmMain().show();
  });
}

void frmResults::cboGroup_Click() {
  procedure("cboGroup_Click", [this] {
    if (takeIgnoreTag(*ui_->cboGroup)) return;
    if (deleting_) return ui_->cboGroup->setCurrentIndex(ResultsGroup.raw());
    ResultsGroup = static_cast<std::int16_t>(ui_->cboGroup->currentIndex());
    basBuildWholeGrid(*this, 0, 0);
    focusGrid();
  });
}

void frmResults::cboView_Click() {
  procedure("cboView_Click", [this] {
    if (takeIgnoreTag(*ui_->cboView)) return;
    if (deleting_) return ui_->cboView->setCurrentIndex(ResultsView.raw());
    ResultsView = static_cast<std::int16_t>(ui_->cboView->currentIndex());
    basBuildWholeGrid(*this, 0, 0);
    focusGrid();
  });
}

void frmResults::moveToScrollBar() {
  scrollOwed_ = deleting_;
  if (!deleting_) vscrGridMatches_Change(*this);
}

void frmResults::cmdDeleteFile_Click(Int16 mode) {
  if (deleting_) return;
  deleting_ = true;
  basDeleteFile(*this, mode);
  deleting_ = false;
  if (scrollOwed_) moveToScrollBar();
  if (resizeOwed_) Form_Resize();
}

void frmResults::displayHelp(Int16 helpId) {
  QtFrame frame(ui_->fraHelp);
  QtTextBox text(ui_->txtHelp);
  basDisplayHelp(helpId, frame, text);
}

void frmResults::basUpdateStatusBar() {
  procedure("basUpdateStatusBar", [this] {
    for (const PanelText& panel : resultsStatusPanels())
      ui_->sbarStatus->setPanelText(panel.number, panel.text);
  });
}

// The controls.

FlexGridModel& frmResults::gridMatches() {
  return ui_->gridMatches->model();
}
ScrollBarControl& frmResults::vscrGridMatches() {
  return *scrollBar_;
}
PictureButtonControl& frmResults::cmdAutoResize() {
  return *autoResize_;
}
const TextRuler& frmResults::labSizer() const {
  return *ui_->labSizer;
}
void frmResults::labNoDuplicates(bool visible) {
  ui_->labNoDuplicates->setVisible(visible);
}
void frmResults::disable(std::string_view control) {
  findChild<QWidget*>(qtText(control))->setEnabled(false);
}
Int32 frmResults::pictureWidth(std::string_view key) const {
  return pictureUnitsFromPixels(pictureSize(key).width());
}
std::intptr_t frmResults::hWnd() const {
  return static_cast<std::intptr_t>(winId());
}

// Mouse and keyboard.

void frmResults::popUp(std::string_view menu) {
  findChild<QMenu*>(qtText(menu))->popup(menuPosition_);
}

// A button pressed there, in twips from the grid's corner.
void frmResults::popUpAt(Int16 button, QPoint atGrid) {
  const QPoint pixels(pixelsFromTwips(atGrid.x()), pixelsFromTwips(atGrid.y()));
  menuPosition_ = ui_->gridMatches->viewport()->mapToGlobal(pixels);
  gridMatches_MouseDown(*this, button, atGrid.y());
}

// The key for menus stands in for the right button on the current row.
void frmResults::contextMenuEvent(QContextMenuEvent* event) {
  constexpr int rightButton = 2;
  const FlexGridModel& grid = gridMatches();
  if (event->reason() != QContextMenuEvent::Keyboard || !ui_->gridMatches->hasFocus() ||
      grid.row() < 1)
    return event->ignore();
  const Int32 height = grid.rowHeight(grid.row());
  popUpAt(rightButton, {height.raw(), (grid.rowPos(grid.row()) + height / 2).raw()});
}

void frmResults::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && ui_->gridMatches->hasFocus()) {
    if (!event->isAutoRepeat() && !deleting_) tickSelection(*this);
    return;
  }
  Form::keyPressEvent(event);
}

// What the grid has no use for moves the bar beside it.
void frmResults::wheelEvent(QWheelEvent* event) {
  const bool overGrid = ui_->gridMatches->geometry().contains(event->position().toPoint());
  if (overGrid && ui_->vscrGridMatches->isVisible())
    QCoreApplication::sendEvent(ui_->vscrGridMatches, event);
  else
    Form::wheelEvent(event);
}

}  // namespace quernstoke::forms
