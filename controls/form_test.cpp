#include "controls/form.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "testing/qt/input.h"
#include "testing/qt/settle.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;
Log handlers;  // Those that ran, in order.

// A form with a label and two buttons that writes down which of its handlers run.
class NotingForm : public Form {
 public:
  NotingForm() {
    resize(300, 200);
    label.setGeometry(10, 10, 100, 20);
    field.setGeometry(10, 40, 100, 20);
    ok.setGeometry(10, 70, 80, 20);
    cancel.setGeometry(100, 70, 80, 20);
    ok.setDefault(true);
    setCancelButton(cancel);
    QObject::connect(&ok, &QPushButton::clicked, [this] { onClick("ok"); });
    QObject::connect(&cancel, &QPushButton::clicked, [this] { onClick("cancel"); });
  }
  ~NotingForm() override { note("delete"); }

  std::function<void()> onLoad, onActivate, onUnload;
  std::function<void(const char*)> onClick = [](const char* name) { note(name); };
  bool mayUnload = true;
  QLabel label{"text", this};
  QLineEdit field{this};
  QPushButton ok{"OK", this};
  QPushButton cancel{"Cancel", this};

  static void note(const char* what) { handlers.emplace_back(what); }

 protected:
  void Form_Load() override {
    note(isVisible() ? "load while visible" : "load");
    if (onLoad) onLoad();
  }
  void Form_Activate() override {
    note("activate");
    if (onActivate) onActivate();
  }
  void Form_Resize() override { note("resize"); }
  void Form_Paint() override { note("paint"); }
  bool Form_QueryUnload(UnloadCause cause) override {
    note(cause == UnloadCause::closeBox ? "closeBox?" : "unload?");
    return mayUnload;
  }
  void Form_Unload() override {
    note(isVisible() ? "unload" : "unload while hidden");
    if (onUnload) onUnload();
  }
};

// What a person does once the event loop runs.
void later(std::function<void()> act) {
  QTimer::singleShot(0, std::move(act));
}

class FormTest : public testing::Test {
 protected:
  FormTest() { handlers.clear(); }
  ~FormTest() override {
    Form::deleteAll();
    settle();
  }

  // A form that is shown and has come to rest.
  NotingForm& shownForm() {
    auto* form = new NotingForm;
    form->show();
    settle();
    handlers.clear();
    return *form;
  }
};

TEST_F(FormTest, AFormIsLoadedSizedActivatedAndPainted) {
  auto* form = new NotingForm;
  EXPECT_THAT(handlers, IsEmpty());
  form->show();
  EXPECT_THAT(handlers, ElementsAre("load"));
  EXPECT_TRUE(form->isVisible());
  settle();
  EXPECT_THAT(handlers, ElementsAre("load", "resize", "activate", "paint"));
}

TEST_F(FormTest, AFormIsLoadedOnce) {
  auto* form = new NotingForm;
  form->load();
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->isLoaded());
  form->load();
  form->show();
  EXPECT_THAT(handlers, ElementsAre("load"));
}

TEST_F(FormTest, AHiddenFormThatIsShownAgainIsActivatedAgain) {
  NotingForm& form = shownForm();
  form.hide();
  settle();
  EXPECT_TRUE(form.isLoaded());
  form.show();
  settle();
  EXPECT_EQ(std::count(handlers.begin(), handlers.end(), "activate"), 1);
  EXPECT_EQ(std::count(handlers.begin(), handlers.end(), "load"), 0);
}

TEST_F(FormTest, ComingBackFromAnotherWindowActivates) {
  NotingForm& form = shownForm();
  QWidget other;
  other.show();
  other.activateWindow();
  settle();
  form.activateWindow();
  settle();
  EXPECT_THAT(handlers, testing::Contains("activate").Times(1));
}

TEST_F(FormTest, ResizingIsTold) {
  NotingForm& form = shownForm();
  form.resize(400, 300);
  settle();
  EXPECT_EQ(std::count(handlers.begin(), handlers.end(), "resize"), 1);
}

TEST_F(FormTest, MinimisingAndRestoringCountAsResizing) {
  NotingForm& form = shownForm();
  EXPECT_EQ(form.shownState(), ShownState::normal);
  form.setShownState(ShownState::minimised);
  settle();
  EXPECT_EQ(form.shownState(), ShownState::minimised);
  EXPECT_THAT(handlers, testing::Contains("resize"));
  handlers.clear();
  form.setShownState(ShownState::normal);
  settle();
  EXPECT_EQ(form.shownState(), ShownState::normal);
  EXPECT_THAT(handlers, testing::Contains("resize"));
  form.setShownState(ShownState::maximised);
  EXPECT_EQ(form.shownState(), ShownState::maximised);
}

// A handler of painting that changes a label would otherwise be called for ever.
TEST_F(FormTest, PaintingAControlDoesNotPaintTheForm) {
  NotingForm& form = shownForm();
  form.label.setText("another text");
  form.ok.setEnabled(false);
  settle();
  EXPECT_THAT(handlers, IsEmpty());
  form.update();
  settle();
  EXPECT_THAT(handlers, ElementsAre("paint"));
}

TEST_F(FormTest, RefreshPaintsAtOnceAndOnce) {
  NotingForm& form = shownForm();
  form.refresh();
  EXPECT_THAT(handlers, ElementsAre("paint"));
  settle();
  EXPECT_THAT(handlers, ElementsAre("paint"));
}

TEST_F(FormTest, UnloadingHidesAndDeletesLater) {
  NotingForm& form = shownForm();
  form.unload();
  EXPECT_THAT(handlers, ElementsAre("unload?", "unload"));
  EXPECT_FALSE(form.isVisible());
  EXPECT_FALSE(form.isLoaded());
  settle();
  EXPECT_THAT(handlers, ElementsAre("unload?", "unload", "delete"));
}

TEST_F(FormTest, UnloadingTwiceUnloadsOnce) {
  NotingForm& form = shownForm();
  form.onUnload = [&] { form.unload(); };
  form.unload();
  form.unload();
  EXPECT_THAT(handlers, ElementsAre("unload?", "unload"));
}

TEST_F(FormTest, AFormThatWasNeverLoadedIsNotUnloaded) {
  NotingForm form;
  form.unload();
  EXPECT_THAT(handlers, IsEmpty());
}

TEST_F(FormTest, AFormMayRefuse) {
  NotingForm& form = shownForm();
  form.mayUnload = false;
  form.unload();
  form.close();
  settle();
  EXPECT_THAT(handlers, ElementsAre("unload?", "closeBox?"));
  EXPECT_TRUE(form.isLoaded());
  EXPECT_TRUE(form.isVisible());
}

TEST_F(FormTest, TheCloseBoxUnloads) {
  NotingForm& form = shownForm();
  form.close();
  settle();
  EXPECT_THAT(handlers, ElementsAre("closeBox?", "unload", "delete"));
}

// A scan is started by a button of a window that is unloaded at once, and yields for hours.
TEST_F(FormTest, AFormLivesUntilItsHandlerHasReturned) {
  NotingForm& form = shownForm();
  form.onClick = [&form](const char*) {
    form.unload();
    QApplication::processEvents();
    NotingForm::note("yielded");
    form.label.setText("still there");
  };
  later([&form] { form.ok.click(); });
  settle();
  EXPECT_THAT(handlers, ElementsAre("unload?", "unload", "yielded", "delete"));
}

// A button that yields may be waiting for another one that unloads the form.
TEST_F(FormTest, AFormLivesUntilAHandlerHasReturnedThatYieldedToItsUnloading) {
  NotingForm& form = shownForm();
  form.onClick = [&form](const char*) {
    later([&form] { form.unload(); });
    for (int yield = 0; yield < 3; ++yield)
      QApplication::processEvents();
    NotingForm::note("yielded");
    form.label.setText("still there");
  };
  later([&form] { form.ok.click(); });
  settle();
  EXPECT_THAT(handlers, ElementsAre("unload?", "unload", "yielded", "delete"));
}

TEST_F(FormTest, AFormLivesWhileItsHandlerShowsAnotherModally) {
  NotingForm& form = shownForm();
  form.onClick = [&form](const char*) {
    form.unload();
    auto* dialog = new NotingForm;
    dialog->onActivate = [dialog] { dialog->unload(); };
    dialog->showModal();
    NotingForm::note("returned");
    form.label.setText("still there");
  };
  later([&form] { form.ok.click(); });
  settle();
  const auto returned = std::find(handlers.begin(), handlers.end(), "returned");
  ASSERT_NE(returned, handlers.end());
  EXPECT_EQ(std::count(handlers.begin(), returned, "delete"), 0);
  EXPECT_EQ(std::count(returned, handlers.end(), "delete"), 2);
}

TEST_F(FormTest, AFormUnloadedWhileItActivatesRunsNoFurtherHandler) {
  auto* form = new NotingForm;
  form->onActivate = [form] { form->unload(); };
  form->show();
  settle();
  EXPECT_THAT(handlers, ElementsAre("load", "resize", "activate", "unload?", "unload", "delete"));
}

TEST_F(FormTest, AFormUnloadedWhileItLoadsIsNotShown) {
  auto* form = new NotingForm;
  form->onLoad = [form] { form->unload(); };
  form->show();
  EXPECT_FALSE(form->isVisible());
  form->showModal();
  EXPECT_THAT(handlers, ElementsAre("load", "unload?", "unload while hidden"));
}

TEST_F(FormTest, AModalFormReturnsWhenItIsUnloaded) {
  auto* form = new NotingForm;
  form->onActivate = [form] {
    EXPECT_EQ(QApplication::activeModalWidget(), form);
    form->unload();
  };
  form->showModal();
  EXPECT_THAT(handlers, ElementsAre("load", "resize", "activate", "unload?", "unload"));
}

TEST_F(FormTest, AModalFormReturnsWhenItIsHidden) {
  auto* form = new NotingForm;
  form->onActivate = [form] { form->hide(); };
  form->showModal();
  EXPECT_TRUE(form->isLoaded());
  EXPECT_FALSE(form->isVisible());
}

TEST_F(FormTest, AModalFormLiesOverTheActiveOne) {
  NotingForm& owner = shownForm();
  owner.move(200, 150);
  owner.activateWindow();
  settle();
  auto* form = new NotingForm;
  form->resize(100, 60);
  QPoint centre;
  form->onActivate = [form, &centre] {
    centre = form->geometry().center();
    form->unload();
  };
  form->showModal();
  constexpr int frame = 10;  // What the window's frame may shift it by.
  EXPECT_LE((centre - owner.geometry().center()).manhattanLength(), frame);
}

TEST_F(FormTest, EnterPressesTheDefaultButton) {
  NotingForm& form = shownForm();
  form.field.setFocus();
  typeKey(form.field, Qt::Key_Return);
  EXPECT_THAT(handlers, ElementsAre("ok"));
}

TEST_F(FormTest, EnterPressesTheButtonWithTheFocusFirst) {
  NotingForm& form = shownForm();
  form.cancel.setFocus();
  typeKey(form.cancel, Qt::Key_Return);
  EXPECT_THAT(handlers, ElementsAre("cancel"));
}

TEST_F(FormTest, EnterPressesAToolButtonThatHasTheFocus) {
  NotingForm& form = shownForm();
  QToolButton browse(&form);
  QObject::connect(&browse, &QToolButton::clicked, [] { NotingForm::note("browse"); });
  browse.setFocusPolicy(Qt::StrongFocus);
  browse.show();
  browse.setFocus();
  typeKey(browse, Qt::Key_Return);
  EXPECT_THAT(handlers, ElementsAre("browse"));
}

TEST_F(FormTest, EnterOnABoxOrAnOptionPressesTheDefaultButton) {
  NotingForm& form = shownForm();
  QCheckBox box(&form);
  QRadioButton option(&form);
  for (QAbstractButton* each :
       {static_cast<QAbstractButton*>(&box), static_cast<QAbstractButton*>(&option)}) {
    handlers.clear();
    each->show();
    each->setFocus();
    typeKey(*each, Qt::Key_Return);
    EXPECT_FALSE(each->isChecked());
    EXPECT_THAT(handlers, ElementsAre("ok"));
  }
}

TEST_F(FormTest, WithoutADefaultButtonEnterPressesNone) {
  auto* form = new NotingForm;
  form->ok.setDefault(false);
  form->show();
  settle();
  handlers.clear();
  form->field.setFocus();
  typeKey(form->field, Qt::Key_Return);
  EXPECT_THAT(handlers, IsEmpty());
}

TEST_F(FormTest, EscapePressesTheCancelButtonAndElseDoesNothing) {
  NotingForm& form = shownForm();
  typeKey(form, Qt::Key_Escape);
  EXPECT_THAT(handlers, ElementsAre("cancel"));
  auto* plain = new Form;
  plain->show();
  typeKey(*plain, Qt::Key_Escape);
  EXPECT_TRUE(plain->isVisible());
}

// A form with a field above and a button below a space of this size.
class LargeForm : public Form {
 public:
  explicit LargeForm(QSize space) {
    auto* const layout = new QVBoxLayout(this);
    auto* const between = new QWidget;
    between->setMinimumSize(space);
    layout->addWidget(&field);
    layout->addWidget(between);
    layout->addWidget(&button);
    resize(space + QSize(0, 200));
    setMouseTracking(true);
    field.setFocus();
  }
  QLineEdit field;
  QPushButton button{"OK"};
};

class FormOnSmallScreenTest : public FormTest {
 protected:
  static QSize screenSize() { return QGuiApplication::primaryScreen()->availableSize(); }
  // In the window, where a person could see and click it.
  static bool isReachable(const QWidget& widget) {
    return widget.visibleRegion().boundingRect() == widget.rect();
  }
};

TEST_F(FormOnSmallScreenTest, AFormThatCannotBeSmallerScrolls) {
  auto* const form = new LargeForm(screenSize() * 2);
  form->show();
  settle();
  EXPECT_LT(form->width(), screenSize().width());
  EXPECT_LT(form->height(), screenSize().height());
  EXPECT_EQ(form->focusWidget(), &form->field);
  EXPECT_FALSE(isReachable(form->button));
  typeKey(form->field, Qt::Key_Tab);
  EXPECT_EQ(form->focusWidget(), &form->button);
  settle();
  EXPECT_FALSE(form->button.visibleRegion().isEmpty());
  EXPECT_NE(form->ground(), form);
}

TEST_F(FormOnSmallScreenTest, AFormThatCanBeSmallerIs) {
  auto* const form = new LargeForm(QSize(100, screenSize().height() - 150));
  form->show();
  settle();
  EXPECT_LT(form->height(), screenSize().height());
  EXPECT_EQ(form->ground(), form);
  EXPECT_TRUE(isReachable(form->button));
}

// Otherwise a part of what the person reads would not be what is taken.
TEST_F(FormTest, AFieldTakesNoControlCharactersOfAPaste) {
  NotingForm& form = shownForm();
  form.field.setText("12");
  form.field.setCursorPosition(1);
  form.field.insert("a\nb\t");
  EXPECT_EQ(form.field.text(), "1ab2");
  EXPECT_EQ(form.field.cursorPosition(), 3);
}

TEST_F(FormTest, KeyHeldDownChoosesNothing) {
  NotingForm& form = shownForm();
  repeatKey(form.field, Qt::Key_Return);
  repeatKey(form, Qt::Key_Escape);
  EXPECT_THAT(handlers, IsEmpty());
}

class FormInstanceTest : public FormTest {
 protected:
  FormInstance<NotingForm> instance;
};

TEST_F(FormInstanceTest, TouchingLoadsOnce) {
  EXPECT_FALSE(instance.isLoaded());
  NotingForm& form = instance.get();
  EXPECT_EQ(&form, &instance.get());
  EXPECT_TRUE(instance.isLoaded());
  EXPECT_THAT(handlers, ElementsAre("load"));
}

TEST_F(FormInstanceTest, TouchedAfterItsUnloadingItIsLoadedAnew) {
  instance->field.setText("typed");
  instance->unload();
  EXPECT_FALSE(instance.isLoaded());
  EXPECT_EQ(instance->field.text(), "");
  EXPECT_TRUE(instance.isLoaded());
  EXPECT_THAT(handlers, ElementsAre("load", "unload?", "unload while hidden", "load"));
}

TEST_F(FormInstanceTest, TheOldObjectGoesWithoutTheNew) {
  instance->unload();
  NotingForm& form = instance.get();
  settle();
  EXPECT_EQ(std::count(handlers.begin(), handlers.end(), "delete"), 1);
  EXPECT_EQ(&form, &instance.get());
}

TEST_F(FormInstanceTest, UnloadingWhatIsNotLoadedMakesNothing) {
  instance.unload();
  EXPECT_THAT(handlers, IsEmpty());
}

TEST_F(FormInstanceTest, FormUnloadSeesTheSameForm) {
  NotingForm* form = &instance.get();
  NotingForm* seen = nullptr;
  form->onUnload = [&] { seen = &instance.get(); };
  form->unload();
  EXPECT_EQ(seen, form);
}

// Runs the program's own loop, as only that one is ended. Ends it by itself if nothing else does.
bool endsByItself() {
  bool timedOut = false;
  QTimer watchdog;
  watchdog.setSingleShot(true);
  QObject::connect(&watchdog, &QTimer::timeout, [&] {
    timedOut = true;
    QCoreApplication::exit();
  });
  watchdog.start(300);
  QCoreApplication::exec();
  return !timedOut;
}

TEST_F(FormTest, TheProgramEndsWithItsLastForm) {
  NotingForm& form = shownForm();
  later([&form] { form.unload(); });
  EXPECT_TRUE(endsByItself());
}

// One window makes place for another, and for a moment there is none.
TEST_F(FormTest, TheProgramGoesOnWhenAnotherFormFollows) {
  NotingForm& form = shownForm();
  form.onClick = [&form](const char*) {
    form.unload();
    (new NotingForm)->show();
  };
  later([&form] { form.ok.click(); });
  EXPECT_FALSE(endsByItself());
}

TEST_F(FormTest, TheProgramGoesOnWhileAFormIsLoaded) {
  NotingForm& form = shownForm();
  auto* other = new NotingForm;
  other->show();
  later([&form] { form.close(); });
  EXPECT_FALSE(endsByItself());
}

}  // namespace
}  // namespace quernstoke
