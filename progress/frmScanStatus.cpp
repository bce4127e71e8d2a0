#include "progress/frmScanStatus.h"

#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/text.h"
#include "detect/tempStore.h"
#include "mainui/helpStrings.h"
#include "platform/qt/qtText.h"
#include "progress/scanStatus.h"
#include "progress/ui_frmScanStatus.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr int filesPanel = 3;
constexpr int tempPanel = 9;
constexpr int progressPanel = 11;
constexpr int panelCount = 11;

// The window's own ground shows at both sides. Without any, Form_Paint would never run.
constexpr int sideMargin = 9;

// Texts as wide as those of a large scan: without room for them the panels would move about.
constexpr std::array<std::pair<int, std::string_view>, 5> widestTexts{
    {{filesPanel, "Files:0000000 / 0000000"},
     {5, "Directories:000000"},
     {7, "Duplicates:000000"},
     {tempPanel, "Temp:100%"},
     {progressPanel, "Progress:100%"}}};

// Without the button that maximises: the window is as high as its view.
constexpr Qt::WindowFlags titleButtons = Qt::Window | Qt::CustomizeWindowHint |
                                         Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

std::string percentOf(Int32 part, Int32 whole) {
  return std::to_string(wholePercent(part.raw(), whole.raw())) + "%";
}

bool listIsIncomplete() {
  return RunState == runState::idle || RunState == runState::buildingList;
}

// A scan that ended by a failure leaves its RunState behind, but the log is closed then. The two
// directories of a side by side view are read without a log.
bool scanIsRunning() {
  switch (RunState.raw()) {
    case runState::idle:
      return true;
    case runState::buildingList:
    case runState::comparing:
    case runState::pauseRequested:
    case runState::abortRequested:
      return LogFileNumber > 0;
    default:
      return false;
  }
}

}  // namespace

frmScanStatus::frmScanStatus()
    : Form(titleButtons), ui_(std::make_unique<Ui::frmScanStatus>()), Timer1_(new QTimer(this)) {
  ui_->setupUi(this);
  ui_->sbarStatus->setPanelCount(panelCount);
  ui_->labFile1->setElideMode(Qt::ElideMiddle);
  Timer1_->setObjectName("Timer1");
  // Enter or a blank that a person still types must not stop the scan that it has just started.
  ui_->cmdMoreLess->setFocus();
  connectControls();
}

frmScanStatus::~frmScanStatus() = default;

void frmScanStatus::connectControls() {
  connect(ui_->cmdPause, &QPushButton::clicked, this, &frmScanStatus::cmdPause_Click);
  connect(ui_->cmdAbort, &QPushButton::clicked, this, &frmScanStatus::cmdAbort_Click);
  connect(ui_->cmdMoreLess, &QPushButton::clicked, this, &frmScanStatus::cmdMoreLess_Click);
  connect(ui_->sbarStatus, &PanelStatusBar::mouseMove, this, &frmScanStatus::sbarStatus_MouseMove);
  connect(Timer1_, &QTimer::timeout, this, &frmScanStatus::Timer1_Timer);
  // Moves over controls that don't want them come to the form.
  setMouseTracking(true);
  for (QWidget* child : findChildren<QWidget*>())
    child->setMouseTracking(true);
}

void frmScanStatus::Form_Load() {
  procedureGoingOn(
      "Form_Load", [this] { setHelpInterval(0); },
      [this] {
        makeRoomForPanels();
        measureViews();
        setViewHeight(ui_->picStatus->height());
      });
}

void frmScanStatus::Form_Paint() {
  procedureGoingOn(
      "Form_Paint", [this] { ui_->cmdPause->setEnabled(RunState != runState::buildingList); },
      [this] { basUpdateStatusBar(); });
}

bool frmScanStatus::Form_QueryUnload(UnloadCause cause) {
  if (cause == UnloadCause::program || !scanIsRunning()) return true;
  ui_->cmdAbort->click();
  return false;
}

void frmScanStatus::cmdPause_Click() {
  procedureGoingOn(
      "cmdPause_Click", [] { RunState = runState::pauseRequested; },
      [this] { ui_->cmdPause->setEnabled(false); }, [this] { ui_->cmdAbort->setEnabled(false); });
}

// Pause stays enabled, and turns an abort that has not been seen yet into a pause.
void frmScanStatus::cmdAbort_Click() {
  procedureGoingOn(
      "cmdAbort_Click", [] { RunState = runState::abortRequested; },
      [this] { ui_->cmdAbort->setEnabled(false); });
}

void frmScanStatus::cmdMoreLess_Click() {
  procedureGoingOn("cmdMoreLess_Click", [this] {
    const QWidget& shortView = *ui_->picStatus;
    ScanDetailsShown = ui_->cmdMoreLess->text() == "More >>";
    setViewHeight(ScanDetailsShown
                      ? shortView.y() + shortView.height() + ui_->fraScanStatusTitle->height()
                      : shortView.height());
    ui_->cmdMoreLess->setText(ScanDetailsShown ? "<< Less" : "More >>");
    for (QFrame* frame :
         {ui_->fraScanStatusFiles, ui_->fraScanStatusTimes, ui_->fraScanStatusReadStats})
      frame->setVisible(ScanDetailsShown);
  });
}

void frmScanStatus::sbarStatus_MouseMove(int x) {
  constexpr int helpTime = 5000;
  const std::string tag = tagOfPanelAt(x);
  if (tag.empty()) return;
  procedureGoingOn(
      "sbarStatus_MouseMove",
      [&] { ui_->labHelp->setText(qtText("Help: " + std::string(helpString(toNumber(tag))))); },
      [this] { ui_->labHelp->show(); }, [this] { setHelpInterval(helpTime); });
}

std::string frmScanStatus::tagOfPanelAt(int x) const {
  for (int number = 1; number <= panelCount; ++number) {
    const StatusPanel& panel = ui_->sbarStatus->panel(number);
    if (panel.visible && x >= panel.left && x <= panel.left + panel.width) return panel.tag;
  }
  return {};
}

void frmScanStatus::Timer1_Timer() {
  procedureGoingOn(
      "Timer1_Timer", [this] { setHelpInterval(0); }, [this] { hideHelp(); });
}

void frmScanStatus::Form_MouseMove() {
  procedureGoingOn("Form_MouseMove", [this] { hideHelp(); });
}

void frmScanStatus::mouseMoveEvent(QMouseEvent* event) {
  Form::mouseMoveEvent(event);
  Form_MouseMove();
}

void frmScanStatus::hideHelp() {
  ui_->labHelp->clear();
  ui_->labHelp->hide();
}

// An interval of 0 stops the timer.
void frmScanStatus::setHelpInterval(int milliseconds) {
  Timer1_->stop();
  if (milliseconds > 0) Timer1_->start(milliseconds);
}

// A new status is painted on the window's ground. That runs Form_Paint, which is what lets a person
// pause once the list is built.
void frmScanStatus::setStatus(std::string_view text) {
  const QString shown = qtText(text);
  if (ui_->labScanStatus->text() == shown) return;
  ui_->labScanStatus->setText(shown);
  if (shownState() != ShownState::minimised) update();
}

void frmScanStatus::basUpdateStatusBar() {
  procedure("basUpdateStatusBar", [this] {
    setPanel(1, "Profile:" + ProfileName, "150");
    showFilesPanel();
    setPanel(5, "Directories:" + toText(DirCount), "163");
    setPanel(7, "Duplicates:" + toText(DuplicateCount), "164");
    showTempPanel();
    if (FileCount < 1) return;
    setWindowTitle("Scanning...");
    if (StatusFileNumber < 1 || StatusFileNumber > FileCount) return;
    const float percent =
        static_cast<float>(StatusFileNumber.raw()) / static_cast<float>(FileCount.raw()) * 100;
    ui_->pbarPercentage->setValue(static_cast<int>(percent * 100));  // It counts hundredths.
  });
}

void frmScanStatus::showFilesPanel() {
  PanelStatusBar& bar = *ui_->sbarStatus;
  if (listIsIncomplete()) {
    setPanel(filesPanel, "Files:" + toText(FileCount), "161");
    bar.setPanelVisible(progressPanel, false);
  } else if (StatusFileNumber == -1 || FileCount == 0) {
    setPanel(filesPanel, "Files:" + toText(FileCount), "161");
  } else {
    setPanel(filesPanel, "Files:" + toText(StatusFileNumber - 1) + " / " + toText(FileCount),
             "161");
    setPanel(progressPanel, "Progress:" + percentOf(StatusFileNumber, FileCount), "162");
    bar.setPanelVisible(progressPanel, true);
  }
}

void frmScanStatus::showTempPanel() {
  const bool isShown =
      (GlobalSettings.TransferFileLocally || ProfileSettings.ProcessZip) && TempSpaceBudgetKB > 0;
  if (isShown) setPanel(tempPanel, "Temp:" + percentOf(TempUsedKB, TempSpaceBudgetKB), "165");
  ui_->sbarStatus->setPanelVisible(tempPanel, isShown);
}

void frmScanStatus::setPanel(int number, std::string_view text, std::string_view tag) {
  ui_->sbarStatus->setPanelText(number, text);
  ui_->sbarStatus->setPanelTag(number, tag);
}

void frmScanStatus::makeRoomForPanels() {
  PanelStatusBar& bar = *ui_->sbarStatus;
  bar.ensurePolished();
  for (const auto& [number, text] : widestTexts)
    bar.setPanelMinWidth(number, bar.widthFor(text));
  bar.setPanelText(1, "Profile:" + ProfileName);
  const StatusPanel& last = bar.panel(panelCount);
  const int widest = screen()->availableGeometry().width();
  setMinimumWidth(std::min(std::max(width(), last.left + last.width), widest));
}

// The title frame begins below the buttons. The short view ends with its first line, the status;
// the long view shows the whole of it and leaves the room of a line for the help.
void frmScanStatus::measureViews() {
  QFrame& title = *ui_->fraScanStatusTitle;
  lineHeight_ = ui_->labHelp->sizeHint().height() + title.layout()->spacing();
  const int buttonsHeight = ui_->picStatus->sizeHint().height();
  const int barHeight = ui_->sbarStatus->minimumSizeHint().height();
  ui_->picStatus->resize(innerWidth(), buttonsHeight + lineHeight_ + barHeight);
  title.setGeometry(sideMargin, buttonsHeight, innerWidth(), title.sizeHint().height());
  title.layout()->activate();
  for (QFrame* frame :
       {ui_->fraScanStatusFiles, ui_->fraScanStatusTimes, ui_->fraScanStatusReadStats})
    frame->hide();
  hideHelp();
}

int frmScanStatus::innerWidth() const {
  return width() - 2 * sideMargin;
}

void frmScanStatus::setViewHeight(int height) {
  setFixedHeight(height);
}

void frmScanStatus::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  QWidget& bar = *ui_->sbarStatus;
  const int barHeight = bar.minimumSizeHint().height();
  ui_->picStatus->setGeometry(sideMargin, 0, innerWidth(), ui_->picStatus->height());
  ui_->fraScanStatusTitle->resize(innerWidth(), ui_->fraScanStatusTitle->height());
  bar.setGeometry(0, height() - barHeight, width(), barHeight);
  // The help takes the line above the bar; in the short view, that of the status.
  ui_->labHelp->setGeometry(sideMargin, bar.y() - lineHeight_, innerWidth(), lineHeight_);
}

}  // namespace quernstoke::forms
