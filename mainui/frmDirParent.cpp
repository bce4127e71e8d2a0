#include "mainui/frmDirParent.h"

#include <QCheckBox>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <utility>

#include "controls/labelButton.h"
#include "controls/units.h"
#include "core/procedure.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmDirParent.h"
#include "pictures/pictures.h"
#include "platform/qt/qtText.h"

namespace quernstoke::forms {

namespace {

constexpr int leaveBox = -1;
constexpr int gapBetweenLabels = 50;  // Twips, as is the next.
constexpr int gapBehindSelection = 10;

constexpr std::array<Qt::CheckState, 3> stateOfValue = {Qt::Unchecked, Qt::Checked,
                                                        Qt::PartiallyChecked};

int valueOf(const QCheckBox& box) {
  const auto* const state = std::find(stateOfValue.begin(), stateOfValue.end(), box.checkState());
  return static_cast<int>(state - stateOfValue.begin());
}

void setBox(QCheckBox& box, Int32 value) {
  if (value == leaveBox) return;
  if (value < 0 || value >= Int32(stateOfValue.size())) fail(FailureNumber::invalidProcedureCall);
  box.setCheckState(stateOfValue.at(static_cast<std::size_t>(value.raw())));
}

// Readable under the text of the window, in light and dark.
QColor tint(const QPalette& palette) {
  constexpr double strength = 0.3;
  const QColor ground = palette.color(QPalette::Window);
  const QColor accent = palette.color(QPalette::Highlight);
  const auto mix = [](int from, int to) { return static_cast<int>(from + (to - from) * strength); };
  return {mix(ground.red(), accent.red()), mix(ground.green(), accent.green()),
          mix(ground.blue(), accent.blue())};
}

}  // namespace

frmDirParent::frmDirParent() : ui_(std::make_unique<Ui::frmDirParent>()) {
  ui_->setupUi(this);
  ui_->Image1->setPixmap(picture("Open").pixmap(pictureSize("Open"), devicePixelRatioF()));
  QPalette shape = ui_->Shape1->palette();
  shape.setColor(QPalette::Window, tint(palette()));
  ui_->Shape1->setPalette(shape);
  connect(ui_->cmdOK, &QAbstractButton::clicked, this, &frmDirParent::cmdOK_Click);
  connect(ui_->cmdCancel, &QAbstractButton::clicked, this, &frmDirParent::cmdCancel_Click);
  setCancelButton(*ui_->cmdCancel);
  // A dimmed box is cleared by its first click and has two states from then on.
  connect(ui_->chkMakePermanent, &QCheckBox::clicked, this, [this] {
    if (!ui_->chkMakePermanent->isTristate()) return;
    ui_->chkMakePermanent->setTristate(false);
    ui_->chkMakePermanent->setChecked(false);
  });
}

frmDirParent::~frmDirParent() = default;

void frmDirParent::Form_Load() {
  procedure("Form_Load", [this] {
    selectedDir_ = DialogText;
    setBox(*ui_->chkSubDirectories, DialogValue);
    setBox(*ui_->chkMakePermanent, DialogValue2);
    firstActivation_ = true;
  });
}

void frmDirParent::Form_Activate() {
  procedure("Form_Activate", [this] {
    if (!std::exchange(firstActivation_, false)) return;
    if (DialogValue == leaveBox && DialogValue2 == leaveBox) {
      ui_->chkSubDirectories->hide();
      ui_->chkMakePermanent->hide();
    }
    basProcessDir();
    fitWindow();
  });
}

// Closing the window chooses nothing.
bool frmDirParent::Form_QueryUnload(UnloadCause cause) {
  if (cause == UnloadCause::program) return true;
  cmdCancel_Click();
  return false;
}

LabelButton& frmDirParent::label(Int16 index) {
  return *labDirComponent_.at(static_cast<std::size_t>(index.raw()));
}

void frmDirParent::addLabel() {
  const auto index = static_cast<std::int16_t>(labDirComponent_.size());
  LabelButton* const label =
      index == 0 ? ui_->labDirComponent_0 : new LabelButton(ui_->fraDirComponents);
  label->setObjectName("labDirComponent_" + QString::number(index));
  connect(label, &QAbstractButton::clicked, this, [this, index] { labDirComponent_Click(index); });
  labDirComponent_.push_back(label);
}

void frmDirParent::basProcessDir() {
  procedure("basProcessDir", [this] {
    components_ = basLoadDirIntoArray(selectedDir_);
    captions_ = labelCaptions(components_);
    if (captions_.empty()) return;  // The path has more parts than can be counted.
    const Int16 lastLabel = Int32(captions_.size()) - 1;
    for (std::size_t i = 0; i < captions_.size(); ++i) {
      if (i >= labDirComponent_.size()) addLabel();
      const bool isComponent = i % 2 == 0;
      LabelButton& added = *labDirComponent_[i];
      added.setCaption(qtText(captions_[i]));
      added.setCursor(isComponent ? Qt::PointingHandCursor : Qt::ArrowCursor);
      added.setFocusPolicy(isComponent ? Qt::StrongFocus : Qt::NoFocus);
    }
    orderTabs();
    basHighlightDirName(lastLabel);
    label(lastLabel).setFocus();
  });
}

void frmDirParent::orderTabs() {
  QWidget* before = nullptr;
  const auto append = [&](QWidget* next) {
    if (before) setTabOrder(before, next);
    before = next;
  };
  for (LabelButton* component : labDirComponent_)
    append(component);
  for (QWidget* next : std::initializer_list<QWidget*>{
           ui_->chkSubDirectories, ui_->chkMakePermanent, ui_->cmdOK, ui_->cmdCancel})
    append(next);
}

void frmDirParent::labDirComponent_Click(Int16 index) {
  procedure("labDirComponent_Click",
            [&] { basHighlightDirName(clickedComponent(captions_, index)); });
}

// The label before it has its final width by now.
void frmDirParent::placeBehind(Int16 index) {
  LabelButton& placed = label(index);
  if (index > 0) {
    const QRect before = label(index - 1).geometry();
    placed.move(before.x() + before.width() + pixelsFromTwips(gapBetweenLabels), before.y());
  }
  placed.resize(placed.sizeHint());
  placed.show();
}

void frmDirParent::basHighlightDirName(Int16 lastLabel) {
  procedure("basHighlightDirName", [&] {
    selectedDir_ = pathUpTo(captions_, lastLabel);
    int rightEdge = 0;
    for (Int16 index = 0; Int32(index) < Int32(labDirComponent_.size()); ++index) {
      LabelButton& component = label(index);
      const bool selected = index <= lastLabel;
      // A backslash keeps its weight.
      const bool isBackslash = index % 2 != 0;
      component.setBold(selected && !isBackslash);
      component.setAccessibleDescription(selected ? tr("selected") : tr("not selected"));
      placeBehind(index);
      if (selected)
        rightEdge = component.x() + component.width() + pixelsFromTwips(gapBehindSelection);
    }
    showSelectedPart(rightEdge);
  });
}

void frmDirParent::showSelectedPart(int rightEdge) {
  const LabelButton& last = *labDirComponent_.back();
  const int margin = ui_->labDirComponent_0->x();
  ui_->Shape1->setGeometry(ui_->Shape1->x(), ui_->labDirComponent_0->y(),
                           rightEdge - ui_->Shape1->x(), last.height());
  ui_->fraDirComponents->setFixedSize(last.x() + last.width() + margin,
                                      last.height() + 2 * ui_->labDirComponent_0->y());
}

// As wide as the path in bold, as far as the screen allows; a longer one is scrolled.
void frmDirParent::fitWindow() {
  const QRect available = screen()->availableGeometry();
  const QSize path = ui_->fraDirComponents->size();
  const int widest = available.width() * 3 / 4;
  const int barHeight = ui_->areaPath->horizontalScrollBar()->sizeHint().height();
  ui_->areaPath->setMinimumWidth(std::min(path.width(), widest));
  ui_->areaPath->setFixedHeight(path.height() + (path.width() > widest ? barHeight : 0));
  layout()->activate();
  QRect fitted({}, layout()->sizeHint());
  fitted.moveCenter(geometry().center());
  fitted.moveLeft(std::clamp(fitted.left(), available.left(),
                             std::max(available.left(), available.right() - fitted.width())));
  setGeometry(fitted);
  if (!labDirComponent_.empty()) ui_->areaPath->ensureWidgetVisible(labDirComponent_.back());
}

void frmDirParent::cmdOK_Click() {
  procedureGoingOn(
      "cmdOK_Click", [this] { DialogText = selectedDir_; },
      [this] { DialogValue = valueOf(*ui_->chkSubDirectories); },
      [this] { DialogValue2 = valueOf(*ui_->chkMakePermanent); }, [this] { components_ = {}; },
      [this] { unload(); });
}

void frmDirParent::cmdCancel_Click() {
  ignoringFailure([this] {
    DialogText.clear();
    DialogValue = DialogValue2 = 0;
    components_ = {};
    unload();
  });
}

}  // namespace quernstoke::forms
