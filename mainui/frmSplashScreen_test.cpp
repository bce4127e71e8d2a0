#include "mainui/frmSplashScreen.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTimer>

#include "testing/engineTest.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::IsEmpty;

class FrmSplashScreenTest : public EngineTest {
 protected:
  ~FrmSplashScreenTest() override {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  template <class Control>
  Control& control(const char* name) {
    return *screen->findChild<Control*>(name);
  }
  void show() {
    screen->show();
    QApplication::processEvents();
  }
  void clickAddress() {
    auto& address = control<QLabel>("labWebAddress");
    clickMouse(address, address.rect().center());
  }

  QPointer<forms::frmSplashScreen> screen = new forms::frmSplashScreen;
};

TEST_F(FrmSplashScreenTest, GoesByItselfAfterThreeSeconds) {
  auto& timer = control<QTimer>("TimerSplashScreen");
  EXPECT_FALSE(timer.isActive());
  show();
  EXPECT_TRUE(timer.isActive());
  EXPECT_EQ(timer.interval(), 3000);
  EXPECT_TRUE(screen->isVisible());

  timer.start(0);  // The time is over.
  QApplication::processEvents();
  EXPECT_TRUE(screen->isUnloaded());
  EXPECT_FALSE(screen->isVisible());
}

// The program waits for it with what it shows next.
TEST_F(FrmSplashScreenTest, ShownModallyItReturnsWhenItsTimeIsOver) {
  screen->load();
  control<QTimer>("TimerSplashScreen").start(1);
  screen->showModal();

  EXPECT_TRUE(screen == nullptr || screen->isUnloaded());
}

TEST_F(FrmSplashScreenTest, KeysAndClicksBesideTheAddressLeaveIt) {
  show();
  typeKey(*screen, Qt::Key_Escape);
  typeKey(*screen, Qt::Key_Return);
  clickMouse(*screen, {5, 5});

  EXPECT_TRUE(screen->isVisible());
  EXPECT_TRUE(desk.opened.empty());
  screen->unload();
}

TEST_F(FrmSplashScreenTest, ClickOnTheAddressOpensIt) {
  show();
  clickAddress();

  ASSERT_EQ(desk.opened.size(), 1U);
  EXPECT_EQ(desk.opened[0].operation, "open");
  EXPECT_EQ(desk.opened[0].file, control<QLabel>("labWebAddress").text().toStdString());
  EXPECT_TRUE(desk.opened[0].file.starts_with("https://"));
  screen->unload();
}

TEST_F(FrmSplashScreenTest, OtherButtonsAndAPressThatIsDraggedOffOpenNothing) {
  show();
  auto& address = control<QLabel>("labWebAddress");
  clickMouse(address, address.rect().center(), Qt::RightButton);
  pressMouse(address, address.rect().center());
  releaseMouse(address, {-5, 3});

  EXPECT_TRUE(desk.opened.empty());
  screen->unload();
}

TEST_F(FrmSplashScreenTest, AddressThatCannotBeOpenedIsPassedOver) {
  show();
  desk.failure = FailureNumber::outOfMemory;
  clickAddress();

  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  screen->unload();
}

TEST_F(FrmSplashScreenTest, BorderRunsRoundTheWindow) {
  screen->setFixedSize(screen->size() + QSize(60, 40));  // As a larger font would have it.
  show();
  EXPECT_EQ(control<QWidget>("shaBorder").geometry(), screen->rect());
  for (const char* name : {"labIcon", "labProductName", "labDescription", "labWebAddress"}) {
    const QWidget& label = control<QWidget>(name);
    EXPECT_TRUE(screen->rect().contains(label.geometry())) << name;
    EXPECT_GE(label.width(), label.sizeHint().width()) << name;
  }
  screen->unload();
}

}  // namespace
}  // namespace quernstoke
