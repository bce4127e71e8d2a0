#include "results/frmResults.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
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
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "platform/windows.h"
#include "results/directoryMatch.h"
#include "results/fileActions.h"
#include "results/filters.h"
#include "results/gridPaging.h"
#include "results/gridScrolling.h"
#include "results/gridSelection.h"
#include "results/gridWidths.h"
#include "results/resultsButtons.h"
#include "results/resultsGrid.h"
#include "results/resultsWindow.h"
#include "results/ui_frmResults.h"
#include "settings/profileStore.h"

namespace quernstoke::forms {

namespace {

constexpr int statusPanelCount = 7;

// Selects an entry as the program's own doing.
template <class Handler>
void selectUnheeded(QComboBox& list, int index, Handler handler) {
  setTag(list, ignoreTag);
  list.setCurrentIndex(index);
  handler();
}

QAction* addItem(QMenu& menu, const char* name, const QString& text,
                 const std::function<void()>& handler) {
  QAction* const item = menu.addAction(text);
  item->setObjectName(name);
  QObject::connect(item, &QAction::triggered, &menu, handler);
  return item;
}

}  // namespace

frmResults::frmResults() : ui_(std::make_unique<Ui::frmResults>()) {
  ui_->setupUi(this);
  scrollBar_ = std::make_unique<QtScrollBar>(ui_->vscrGridMatches);
  autoResize_ = std::make_unique<AutoResizeButton>(ui_->cmdAutoResize);
  setDir_[0] = std::make_unique<DirectoryButton>(ui_->cmdSetDir_0);
  setDir_[1] = std::make_unique<DirectoryButton>(ui_->cmdSetDir_1);
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
  onClick(ui_->cmdFilter, [this] {
    if (!pageIsKept_) cmdFilter_Click(*this);
  });
  onClick(ui_->cmdDeleteFile_0, [this] { cmdDeleteFile_Click(deletionMode::selected); });
  onClick(ui_->cmdDeleteFile_1, [this] { cmdDeleteFile_Click(deletionMode::ticked); });
  onClick(ui_->cmdOpenFile, [this] { basOpenFile(*this); });
  onClick(ui_->cmdOpenDir, [this] { basOpenDir(*this); });
  onClick(ui_->cmdSetDir_0, [this] { cmdSetDir_Click(0); });
  onClick(ui_->cmdSetDir_1, [this] { cmdSetDir_Click(1); });
  onClick(ui_->cmdSetDir_2, [this] { cmdSetDir_Click(2); });
  onClick(ui_->cmdExport, [] { modalForms.frmExportResults(); });
  onClick(ui_->cmdClose, [this] { unload(); });
  onClick(ui_->cmdSHowHideHelp, &frmResults::cmdSHowHideHelp_Click);
  connect(ui_->cboView, &QComboBox::activated, this, &frmResults::cboView_Click);
  connect(ui_->cboGroup, &QComboBox::activated, this, &frmResults::cboGroup_Click);
  connect(ui_->vscrGridMatches, &QScrollBar::valueChanged, this, &frmResults::moveToScrollBar);
  connect(ui_->gridMatches, &FlexGrid::click, this, [this] { gridMatches_Click(*this); });
  connect(ui_->gridMatches, &FlexGrid::keyUp, this, [this](GridKey key) {
    if (!pageIsKept_) gridMatches_KeyUp(*this, key);
  });
  connect(ui_->gridMatches, &FlexGrid::mouseDown, this, [this](GridButton button, int x, int y) {
    popUpAt(button, {x, y});
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
  addItem(single, "mnuFilterDirectory", tr("Filter File"), [this] {
    if (!pageIsKept_) basFilterDirectory(*this);
  });
  QMenu& several = *makeMenu("mnuRightClickMultpleFile", tr("Right Click Mulple File"));
  addItem(several, "mnuDeleteAllSelectedFiles", tr("Delete all Selected Files"), deleteSelected);
  menus_ = {&single, &several, makeMenu("mnuFilterMain", tr("Filter"))};
  makeFilterMenu();
}

void frmResults::makeFilterMenu() {
  QMenu& menu = *menus_[2];
  filterDirectory_ = std::make_unique<FilterItem>(addItem(menu, "mnuFilter_0", {}, [this] {
    if (!pageIsKept_) mnuFilter_Click(*this, 0);
  }));
  QMenu& pair = *menu.addMenu(tr("Exclude comparison between two directories"));
  pair.menuAction()->setObjectName("mnuFilter_1");
  pair.setObjectName("mnuFilterTwoDirs");
  const auto addToPair = [&](const char* name, const QString& text, std::int16_t index) {
    return addItem(pair, name, text, [this, index] {
      if (!pageIsKept_) mnuFilterTwoDirs_Click(*this, index);
    });
  };
  filterTwoDirs_[0] =
      std::make_unique<FilterItem>(addToPair("mnuFilterTwoDirs_0", tr("Set Directory 1"), 0));
  filterTwoDirs_[1] =
      std::make_unique<FilterItem>(addToPair("mnuFilterTwoDirs_1", tr("Set Directory 2"), 1));
  addToPair("mnuFilterTwoDirs_2", tr("Clear selection"), 2);
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
  });
}

void frmResults::Form_Activate() {
  procedure("Form_Activate", [this] {
    if (takeIgnoreTag(*this)) return;
    if (std::exchange(firstActivation_, false)) basPositionFormObjects(0);
  });
}

void frmResults::Form_Resize() {
  procedure("Form_Resize", [this] {
    resizeOwed_ = pageIsKept_;
    if (pageIsKept_ || takeIgnoreTag(*this)) return;
    if (shownState() == ShownState::minimised) return;
    limitSize();
    basPositionFormObjects(static_cast<std::int16_t>(shownState()));
    ui_->picResultButtons->update();
  });
}

bool frmResults::Form_QueryUnload(UnloadCause /*cause*/) {
  return !pageIsKept_;
}

void frmResults::Form_Unload() {
  procedure("Form_Unload", [this] {
    takeInput(false);  // The main window yields while it loads.
    // It also loads the profile anew, from the disk.
    if (exclusionStored_) basSaveProfile("PROFILE");
    leaveResults();
    quernstoke::frmMain().show();
  });
}

void frmResults::cboGroup_Click() {
  procedure("cboGroup_Click", [this] {
    if (takeIgnoreTag(*ui_->cboGroup)) return;
    if (pageIsKept_) return ui_->cboGroup->setCurrentIndex(ResultsGroup.raw());
    ResultsGroup = static_cast<std::int16_t>(ui_->cboGroup->currentIndex());
    basBuildWholeGrid(*this, 0, 0);
    focusGrid();
  });
}

void frmResults::cboView_Click() {
  procedure("cboView_Click", [this] {
    if (takeIgnoreTag(*ui_->cboView)) return;
    if (pageIsKept_) return ui_->cboView->setCurrentIndex(ResultsView.raw());
    ResultsView = static_cast<std::int16_t>(ui_->cboView->currentIndex());
    basBuildWholeGrid(*this, 0, 0);
    focusGrid();
  });
}

void frmResults::moveToScrollBar() {
  if (scrollBar_->tag() == ignoreTag) return;
  scrollOwed_ = pageIsKept_;
  if (!pageIsKept_) vscrGridMatches_Change(*this);
}

// Runs what counts on the page and the order of the catalogue staying as they are while it shows a
// message or another window. These hold off mouse and keyboard, but neither the desktop nor who
// works the controls in other ways.
template <class Command>
void frmResults::keepingThePage(Command command) {
  if (pageIsKept_) return;
  pageIsKept_ = true;
  command();
  pageIsKept_ = false;
  if (scrollOwed_) moveToScrollBar();
  if (resizeOwed_) Form_Resize();
}

void frmResults::cmdDeleteFile_Click(Int16 mode) {
  keepingThePage([&] { basDeleteFile(*this, mode); });
}

void frmResults::cmdSetDir_Click(int index) {
  keepingThePage([&] { quernstoke::cmdSetDir_Click(*this, static_cast<std::int16_t>(index)); });
  for (const auto& button : setDir_)
    button->staySet();
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
const FlexGridModel& frmResults::gridMatches() const {
  return ui_->gridMatches->model();
}
MenuItemControl& frmResults::mnuFilter(Int16 /*index*/) {
  return *filterDirectory_;
}
MenuItemControl& frmResults::mnuFilterTwoDirs(Int16 index) {
  return *filterTwoDirs_.at(static_cast<std::size_t>(index.raw()));
}
DirectoryButtonControl& frmResults::cmdSetDir(Int16 index) {
  return *setDir_.at(static_cast<std::size_t>(index.raw()));
}
const TextRuler& frmResults::labSizer() const {
  return *ui_->labSizer;
}
void frmResults::labNoDuplicates(bool visible) {
  ui_->labNoDuplicates->setVisible(visible);
}
void frmResults::setTag(std::string_view tag) {
  quernstoke::setTag(*this, tag);
}
// The focus would move on from each control that is disabled.
void frmResults::takeInput(bool taken) {
  if (taken == isEnabled()) return;
  if (!taken) focusBefore_ = focusWidget();
  setEnabled(taken);
  if (taken && focusBefore_) focusBefore_->setFocus();
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

// At the height of the pointer, if it was the mouse that pressed the control.
void frmResults::popUpBeside(std::string_view menu, std::string_view control, Int32 gap) {
  const QWidget& beside = *findChild<QWidget*>(qtText(control));
  const QPoint corner = beside.mapToGlobal(QPoint(beside.width() + pixelsFromTwips(gap.raw()), 0));
  const QPoint pointer = QCursor::pos();
  const bool clicked = beside.rect().contains(beside.mapFromGlobal(pointer));
  menuPosition_ = {corner.x(), clicked ? pointer.y() : corner.y()};
  popUp(menu);
}

// A button pressed there, in twips from the grid's corner.
void frmResults::popUpAt(GridButton button, QPoint atGrid) {
  const QPoint pixels(pixelsFromTwips(atGrid.x()), pixelsFromTwips(atGrid.y()));
  menuPosition_ = ui_->gridMatches->viewport()->mapToGlobal(pixels);
  gridMatches_MouseDown(*this, button, atGrid.y());
}

// The key for menus stands in for the right button on the current row.
void frmResults::contextMenuEvent(QContextMenuEvent* event) {
  const FlexGridModel& grid = gridMatches();
  if (event->reason() != QContextMenuEvent::Keyboard || !ui_->gridMatches->hasFocus() ||
      grid.row() < 1)
    return event->ignore();
  const Int32 height = grid.rowHeight(grid.row());
  popUpAt(GridButton::right, {height.raw(), (grid.rowPos(grid.row()) + height / 2).raw()});
}

void frmResults::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && ui_->gridMatches->hasFocus()) {
    if (!event->isAutoRepeat() && !pageIsKept_) tickSelection(*this);
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
