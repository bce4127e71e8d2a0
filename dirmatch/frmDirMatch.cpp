#include "dirmatch/frmDirMatch.h"

#include <QScreen>
#include <algorithm>
#include <utility>

#include "catalogue/dirTable.h"
#include "controls/flexGrid.h"
#include "controls/measuringLabel.h"
#include "controls/units.h"
#include "core/procedure.h"
#include "detect/refinement.h"
#include "dirmatch/dirMatchActions.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "dirmatch/dirMatchSelection.h"
#include "dirmatch/ui_frmDirMatch.h"
#include "platform/qt/qtText.h"

namespace quernstoke::forms {

namespace {

constexpr int leastTwips = 9000;  // Of the window's width and height.

}  // namespace

// Adds to a text the space that the grid leaves beside it.
class CellRuler : public TextRuler {
 public:
  CellRuler(const MeasuringLabel& label, const FlexGrid& grid) : label_(label), grid_(grid) {}
  std::int32_t width(std::string_view text) const override {
    return label_.width(text) + twipsFromPixels(2 * gridTextMargin(grid_));
  }

 private:
  const MeasuringLabel& label_;
  const FlexGrid& grid_;
};

frmDirMatch::frmDirMatch() : ui_(std::make_unique<Ui::frmDirMatch>()) {
  ui_->setupUi(this);
  cellRuler_ = std::make_unique<CellRuler>(*ui_->labSizer, *ui_->griddir);
  // The window keeps its height when the details come and go.
  QSizePolicy keepingRoom = ui_->picFileDetails->sizePolicy();
  keepingRoom.setRetainSizeWhenHidden(true);
  ui_->picFileDetails->setSizePolicy(keepingRoom);
  ui_->picFileDetails->hide();
  ui_->labFileDetailsMessage_0->hide();
  // Lines have light colours of their own and separators a dark one: what is empty must be light.
  QPalette colours = ui_->griddir->palette();
  colours.setColor(QPalette::Base, Qt::white);
  ui_->griddir->setPalette(colours);
  setCancelButton(*ui_->cmdClose);
  connectControls();
  ui_->griddir->setFocus();
}

frmDirMatch::~frmDirMatch() = default;

void frmDirMatch::connectControls() {
  const auto onClick = [this](QAbstractButton* button, auto handler) {
    connect(button, &QAbstractButton::clicked, this, handler);
  };
  using Action = void (*)(DirMatchControls&, Int32);
  const auto onSide = [&](QPushButton* button, Action action, int side) {
    onClick(button, [this, action, side] { keepingTheRows([&] { action(*this, side); }); });
  };
  onSide(ui_->cmdDelete_0, cmdDelete_Click, dirMatchSide::left);
  onSide(ui_->cmdDelete_1, cmdDelete_Click, dirMatchSide::right);
  onSide(ui_->cmdMove_0, cmdMove_Click, dirMatchSide::left);
  onSide(ui_->cmdMove_1, cmdMove_Click, dirMatchSide::right);
  onSide(ui_->cmdOpen_0, cmdOpen_Click, dirMatchSide::left);
  onSide(ui_->cmdOpen_1, cmdOpen_Click, dirMatchSide::right);
  onClick(ui_->chkShowAll, [this] { chkShowAll_Click(); });
  onClick(ui_->cmdClose, [this] { unload(); });
  connect(ui_->griddir, &FlexGrid::click, this, &frmDirMatch::selectByMouse);
  connect(ui_->griddir, &FlexGrid::keyUp, this, &frmDirMatch::selectByKey);
}

// The name in the box is one that it has always had.
void frmDirMatch::Form_Load() {
  procedure("lstFileExtensions_DblClick", [this] {
    DirMatchBase = {listedDirectory(DirMatchDir1).name, listedDirectory(DirMatchDir2).name};
    showDirMatchBases(*this);
    griddir().setFormatString(dirMatchTitles);
    basProcessFiles(*this);
    ui_->labSizer->setFont(ui_->griddir->font());
    firstActivation_ = true;
    filePointersBefore_ = FilePointerArray;
    limitSize();
  });
}

void frmDirMatch::Form_Activate() {
  procedure("Form_Activate", [this] {
    if (std::exchange(firstActivation_, false)) basPositionFormObjects();
  });
}

void frmDirMatch::Form_Resize() {
  ignoringFailure([this] {
    if (shownState() != ShownState::minimised) basPositionFormObjects();
  });
}

bool frmDirMatch::Form_QueryUnload(UnloadCause /*cause*/) {
  return !rowsAreKept_;
}

void frmDirMatch::Form_Unload() {
  procedure("Form_Unload", [this] { FilePointerArray.swap(filePointersBefore_); });
}

// Runs what counts on the rows staying as they are while it shows a message, which holds off mouse
// and keyboard, but neither the desktop nor who works the controls in other ways.
template <class Command>
void frmDirMatch::keepingTheRows(Command command) {
  if (rowsAreKept_) return;
  rowsAreKept_ = true;
  command();
  rowsAreKept_ = false;
}

// The command that is at work would else fill the grid with what has just been ticked.
void frmDirMatch::chkShowAll_Click() {
  if (rowsAreKept_) return ui_->chkShowAll->toggle();
  basProcessFiles(*this);
}

void frmDirMatch::selectByMouse() {
  if (rowsAreKept_) return;
  griddir_Click(*this);
  selectedCol_ = griddir().col();
}

void frmDirMatch::selectByKey() {
  if (rowsAreKept_) return;
  griddir_KeyUp(*this, selectedCol_);
  selectedCol_ = griddir().col();
}

// The rest lies where its layouts put it.
void frmDirMatch::basPositionFormObjects() {
  showDirMatchBases(*this);
  setDirMatchColumnWidths(*this);
}

// As far as the screen is large enough.
void frmDirMatch::limitSize() {
  const int least = pixelsFromTwips(leastTwips);
  setMinimumSize(QSize(least, least).boundedTo(screen()->availableSize()));
}

// The controls.

FlexGridModel& frmDirMatch::griddir() {
  return ui_->griddir->model();
}
bool frmDirMatch::chkShowAll() const {
  return ui_->chkShowAll->isChecked();
}
const TextRuler& frmDirMatch::labSizer() const {
  return *ui_->labSizer;
}
const TextRuler& frmDirMatch::cellRuler() const {
  return *cellRuler_;
}
Int32 frmDirMatch::labDirNameGap() const {
  const QRect left = ui_->labDirName_0->geometry();
  return twipsFromPixels(ui_->labDirName_1->x() - left.x() - left.width());
}
Int32 frmDirMatch::width(std::string_view label) const {
  return twipsFromPixels(findChild<QWidget*>(qtText(label))->width());
}
void frmDirMatch::setText(std::string_view label, std::string_view text) {
  findChild<QLabel*>(qtText(label))->setText(qtText(text));
}
void frmDirMatch::setVisible(std::string_view control, bool visible) {
  findChild<QWidget*>(qtText(control))->setVisible(visible);
}
void frmDirMatch::setEnabled(std::string_view control, bool enabled) {
  findChild<QWidget*>(qtText(control))->setEnabled(enabled);
}
std::intptr_t frmDirMatch::hWnd() const {
  return static_cast<std::intptr_t>(winId());
}

}  // namespace quernstoke::forms
