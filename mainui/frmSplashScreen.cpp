#include "mainui/frmSplashScreen.h"

#include <QMouseEvent>
#include <QTimer>

#include "controls/units.h"
#include "core/procedure.h"
#include "core/system.h"
#include "mainui/ui_frmSplashScreen.h"
#include "pictures/pictures.h"

namespace quernstoke::forms {

namespace {

constexpr const char* webAddress = "https://quernstoke.example";

// The name under which this window reports its failures, not one of its own.
constexpr const char* reportedName = "basUpdateStatusBar";

}  // namespace

frmSplashScreen::frmSplashScreen()
    : Form(Qt::Dialog | Qt::FramelessWindowHint),
      ui_(std::make_unique<Ui::frmSplashScreen>()),
      TimerSplashScreen_(new QTimer(this)) {
  constexpr int showTime = 3000;
  constexpr int iconSize = 96;
  ui_->setupUi(this);
  ui_->labIcon->setPixmap(picture("quernstoke").pixmap({iconSize, iconSize}, devicePixelRatio()));
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 2);
  large.setBold(true);
  ui_->labProductName->setFont(large);
  ui_->labWebAddress->setText(webAddress);
  ui_->labWebAddress->installEventFilter(this);
  ui_->shaBorder->setAttribute(Qt::WA_TransparentForMouseEvents);  // It lies over the labels.
  setFixedSize(size().expandedTo(sizeHint()));
  TimerSplashScreen_->setObjectName("TimerSplashScreen");
  TimerSplashScreen_->setInterval(showTime);
  connect(TimerSplashScreen_, &QTimer::timeout, this, &frmSplashScreen::TimerSplashScreen_Timer);
}

frmSplashScreen::~frmSplashScreen() = default;

void frmSplashScreen::Form_Load() {
  TimerSplashScreen_->start();
  procedureGoingOn(
      reportedName, [this] { ui_->shaBorder->move(pixelsFromTwips(1), pixelsFromTwips(1)); },
      [this] { ui_->shaBorder->resize(size()); });
}

void frmSplashScreen::TimerSplashScreen_Timer() {
  unload();
}

bool frmSplashScreen::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->labWebAddress && event->type() == QEvent::MouseButtonRelease) {
    const auto& release = *static_cast<QMouseEvent*>(event);
    const bool isOver = ui_->labWebAddress->rect().contains(release.position().toPoint());
    if (release.button() == Qt::LeftButton && isOver) labWebAddress_Click();
  }
  return Form::eventFilter(watched, event);
}

void frmSplashScreen::labWebAddress_Click() {
  procedureGoingOn(reportedName,
                   [] { basShellOpen(webAddress, ShowMode::byDefault, "", "", "open", 0); });
}

}  // namespace quernstoke::forms
