// Where the controls of the results window lie.

#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "controls/flexGrid.h"
#include "controls/measuringLabel.h"
#include "controls/panelStatusBar.h"
#include "core/procedure.h"
#include "pictures/pictures.h"
#include "results/frmResults.h"
#include "results/gridSelection.h"
#include "results/resultsGrid.h"
#include "results/ui_frmResults.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr QSize helpButton(26, 72);
constexpr int narrowestHelp = 150;
constexpr int widestHelp = 260;

}  // namespace

bool frmResults::helpIsShown() const {
  return ui_->fraHelp->isVisibleTo(this);
}

void frmResults::showHelpPicture() {
  ui_->cmdSHowHideHelp->setIcon(picture(helpIsShown() ? "HelpHide" : "HelpUnhide"));
}

void frmResults::focusGrid() {
  focusIfVisible(gridMatches());
}

void frmResults::cmdSHowHideHelp_Click() {
  procedure("cmdShowHideHelp_Click", [this] {
    if (pageIsKept_) return;
    const bool shown = !helpIsShown();
    ui_->fraHelp->setVisible(shown);
    GlobalSettings.HelpPanel = shown;
    showHelpPicture();
    basPositionFormObjects(shown ? -1 : 0);
    focusGrid();
  });
}

int frmResults::margin() const {
  return ui_->picResultButtons->x();
}

// Of all that stands above the status bar.
int frmResults::columnHeight() const {
  return ui_->sbarStatus->y() - 2 * margin();
}

// Of a window in which all buttons are seen.
int frmResults::leastHeight() const {
  return ui_->picActions->sizeHint().height() + ui_->cmdClose->sizeHint().height() + 5 * margin() +
         ui_->sbarStatus->minimumSizeHint().height();
}

// On a screen that is too small the buttons above cmdClose scroll.
bool frmResults::actionsScroll() const {
  return leastHeight() > roomOnScreen().height();
}

int frmResults::columnWidth() const {
  const int bar = actionsScroll() ? ui_->areaActions->verticalScrollBar()->sizeHint().width() : 0;
  return std::max(ui_->picActions->sizeHint().width() + bar, ui_->cmdClose->sizeHint().width());
}

int frmResults::gridLeft() const {
  return 2 * margin() + columnWidth();
}

void frmResults::placeStatusBar() {
  const int barHeight = ui_->sbarStatus->minimumSizeHint().height();
  ui_->sbarStatus->setGeometry(0, height() - barHeight, width(), barHeight);
}

void frmResults::placeAtRight() {
  QPushButton& button = *ui_->cmdSHowHideHelp;
  button.setGeometry(width() - helpButton.width(), (height() - helpButton.height()) / 2,
                     helpButton.width(), helpButton.height());
  const int helpWidth = std::clamp(width() / 4, narrowestHelp, widestHelp);
  ui_->fraHelp->setGeometry(button.x() - helpWidth, margin(), helpWidth, columnHeight());
  showHelpPicture();
  const int barWidth = ui_->vscrGridMatches->sizeHint().width();
  const int right = helpIsShown() ? ui_->fraHelp->x() : button.x();
  ui_->vscrGridMatches->setGeometry(right - barWidth, margin(), barWidth, columnHeight());
}

void frmResults::placeGrid() {
  const QRect bar = ui_->vscrGridMatches->geometry();
  ui_->gridMatches->setGeometry(gridLeft(), margin(), bar.x() - gridLeft(), columnHeight());
  QLabel& empty = *ui_->labNoDuplicates;
  empty.setGeometry(gridLeft(), height() / 2, ui_->gridMatches->width() + bar.width(),
                    empty.sizeHint().height());
}

void frmResults::placeButtons() {
  ui_->picResultButtons->setGeometry(margin(), margin(), columnWidth(), columnHeight());
  const int closeHeight = ui_->cmdClose->sizeHint().height();
  const int closeTop = columnHeight() - closeHeight - 2 * margin();
  ui_->areaActions->setGeometry(0, 0, columnWidth(), closeTop - margin());
  ui_->cmdClose->setGeometry(0, closeTop, columnWidth(), closeHeight);
}

// So that no button hides another and a page has room, as far as the screen has.
void frmResults::limitSize() {
  constexpr int narrowestGrid = 440;
  const QSize least(
      gridLeft() + narrowestGrid + ui_->vscrGridMatches->sizeHint().width() + helpButton.width(),
      leastHeight());
  setMinimumSize(least.boundedTo(roomOnScreen()));
}

// From right to left, as each lies beside the one before.
void frmResults::basPositionFormObjects(Int16 keepOrder) {
  procedure("basPositionFormObjects", [&] {
    if (shownState() == ShownState::minimised) return;
    closeMenus();
    placeStatusBar();
    placeAtRight();
    placeGrid();
    placeButtons();
    basBuildWholeGrid(*this, 0, keepOrder);
  });
}

}  // namespace quernstoke::forms
