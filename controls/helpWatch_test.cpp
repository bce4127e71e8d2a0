#include "controls/helpWatch.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <gmock/gmock.h>

#include "controls/form.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A form of a background with a label, a button and a list on it, and a button without help beside
// it.
class HelpWatchTest : public testing::Test {
 protected:
  HelpWatchTest() {
    form_.resize(300, 100);
    ground_.setGeometry(0, 0, 200, 100);
    label_.setGeometry(0, 0, 100, 20);
    explained_.setGeometry(0, 40, 100, 20);
    list_.setGeometry(0, 60, 100, 20);
    plain_.setGeometry(200, 0, 100, 20);
    explained_.setProperty("helpContextId", 7);
    list_.setProperty("helpContextId", 8);
    watchForHelp(form_, {&ground_}, [this](int id) { told_.push_back(id); });
    form_.show();
  }
  ~HelpWatchTest() override { Form::deleteAll(); }

  Form& form_ = *new Form;
  QWidget& ground_ = *new QWidget(&form_);
  QLabel& label_ = *new QLabel(&ground_);
  QPushButton& explained_ = *new QPushButton(&ground_);
  QListWidget& list_ = *new QListWidget(&ground_);
  QPushButton& plain_ = *new QPushButton(&form_);
  std::vector<int> told_;
};

TEST_F(HelpWatchTest, PointerOverAControlTellsItsNumber) {
  moveMouse(explained_, {5, 5});
  EXPECT_THAT(told_, ElementsAre(7));
}

TEST_F(HelpWatchTest, PointerOverWhatAControlShowsTellsItsNumber) {
  moveMouse(*list_.viewport(), {5, 5});
  EXPECT_THAT(told_, testing::Contains(8));
}

TEST_F(HelpWatchTest, PointerOverTheBackgroundItselfTellsNone) {
  moveMouse(ground_, {150, 80});
  EXPECT_THAT(told_, ElementsAre(-1));
}

// A label lets the pointer's moves through.
TEST_F(HelpWatchTest, PointerOverALabelOfTheBackgroundTellsNothing) {
  moveMouse(ground_, {50, 10});
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(HelpWatchTest, OtherControlsTellNothing) {
  moveMouse(plain_, {5, 5});
  moveMouse(form_, {250, 80});
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(HelpWatchTest, GroundThatScrollsIsStillThatOfTheForm) {
  auto* const form = new Form;
  auto* const large = new QWidget;
  (new QVBoxLayout(form))->addWidget(large);
  form->layout()->setContentsMargins(50, 0, 0, 0);
  large->setMinimumSize(QGuiApplication::primaryScreen()->availableSize() * 2);
  watchForHelp(*form, {form}, [this](int id) { told_.push_back(id); });
  form->show();
  QApplication::processEvents();
  ASSERT_NE(form->ground(), form);
  moveMouse(*form, {10, 10});
  EXPECT_THAT(told_, ElementsAre(-1));
  moveMouse(*form, {100, 10});
  EXPECT_THAT(told_, ElementsAre(-1));
}

TEST_F(HelpWatchTest, FocusByTheKeyboardAloneTellsTheNumber) {
  for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason}) {
    QFocusEvent focus(QEvent::FocusIn, reason);
    QApplication::sendEvent(&explained_, &focus);
  }
  for (const auto reason : {Qt::MouseFocusReason, Qt::OtherFocusReason}) {
    QFocusEvent focus(QEvent::FocusIn, reason);
    QApplication::sendEvent(&explained_, &focus);
  }
  EXPECT_THAT(told_, ElementsAre(7, 7, 7));
}

TEST_F(HelpWatchTest, ControlKeepsItsEvents) {
  int clicks = 0;
  QObject::connect(&explained_, &QPushButton::clicked, [&] { ++clicks; });
  clickMouse(explained_, {5, 5});
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quernstoke
