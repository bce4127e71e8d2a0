// The help panel of the main window: what it shows for the control under the pointer or with the
// keyboard's focus.

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTabBar>
#include <algorithm>
#include <array>

#include "controls/controlAdapters.h"
#include "controls/flexGrid.h"
#include "controls/panelStatusBar.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/quickHelp.h"
#include "mainui/statusPanels.h"
#include "mainui/ui_frmMain.h"

namespace quernstoke::forms {

namespace {

constexpr const char* helpContextId = "helpContextId";

// The help of a grid is also that of the inner widget on which its cells are drawn.
QVariant helpIdOf(const QWidget& widget) {
  const auto* const grid = qobject_cast<const FlexGrid*>(widget.parentWidget());
  const bool isInner = grid != nullptr && grid->viewport() == &widget;
  return (isInner ? *grid : widget).property(helpContextId);
}

bool movedByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

}  // namespace

void frmMain::updateHelp() {
  HelpState = basDetermineHelpState(gridList().rows(), tickedOptions());
  displayHelp(-1);
}

void frmMain::displayHelp(Int16 helpId) {
  QtFrame frame(ui_->fraHelp);
  QtTextBox text(ui_->txtHelp);
  basDisplayHelp(helpId, frame, text);
}

// Text of the step reached, for the spaces between the controls.
bool frmMain::isBackground(const QWidget* widget) const {
  const std::array<const QWidget*, 8> backgrounds = {
      this,         ui_->fraProfile,        ui_->fraWhatToScan,      ui_->fraScanOptions,
      ui_->tabMain, ui_->tabMain->tabBar(), ui_->tabProfileSettings, ui_->tabGlobalSettings};
  return std::find(backgrounds.begin(), backgrounds.end(), widget) != backgrounds.end();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  auto* const widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return Form::eventFilter(watched, event);
  const QVariant id = helpIdOf(*widget);
  const bool pointed = event->type() == QEvent::MouseMove;
  const bool focused = event->type() == QEvent::FocusIn &&
                       movedByKeyboard(static_cast<QFocusEvent*>(event)->reason());
  if (id.isValid() && (pointed || focused)) displayHelp(id.toInt());
  // A move over a label passes on to what lies behind it, and is none over that.
  if (pointed && isBackground(widget)) {
    const QPoint at = static_cast<QMouseEvent*>(event)->position().toPoint();
    const QWidget* const over = widget->childAt(at);
    if (over == nullptr || over == ground()) displayHelp(-1);
  }
  if (widget == ui_->txtContentMatchingPercent && event->type() == QEvent::KeyPress)
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

void frmMain::watchPointer() {
  setMouseTracking(true);
  installEventFilter(this);
  for (QWidget* child : findChildren<QWidget*>()) {
    child->setMouseTracking(true);
    child->installEventFilter(this);
  }
}

void frmMain::sbarStatus_MouseMove(int x) {
  procedure("sbarStatus_MouseMove", [&] {
    std::string tag;
    for (int number = 1; number <= ui_->sbarStatus->panelCount(); ++number) {
      const StatusPanel& panel = ui_->sbarStatus->panel(number);
      if (x > panel.left && x < panel.left + panel.width) tag = panel.tag;
    }
    if (!tag.empty()) displayHelp(toNumber(tag));
  });
}

void frmMain::basUpdateStatusBar() {
  procedure("basUpdateStatusBar", [this] {
    ui_->sbarStatus->setVisible(!ProfileName.empty());
    for (const PanelText& panel : mainStatusPanels()) {
      ui_->sbarStatus->setPanelText(panel.number, panel.text);
      ui_->sbarStatus->setPanelTag(panel.number, panel.tag);
    }
  });
}

}  // namespace quernstoke::forms
