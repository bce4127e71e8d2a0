#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>

#include "mainui/frmMainTest.h"
#include "platform/qt/qtDialogs.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* percentMessage = "Content matching percent must be between 50 and 100";

class MainWindowFields : public MainWindowTest {
 protected:
  void openWithFieldOn(const char* name) {
    openAnn();
    if (control<QTabWidget>("tabMain").widget(1)->isAncestorOf(&control<QWidget>(name)))
      showGlobalPage();
  }
  // Goes into the field, puts this text there and leaves it with Tab.
  void leaveWith(const char* name, const std::string& value) {
    field(name).setFocus();
    field(name).setText(QString::fromStdString(value));
    dialogBoxes.messages.clear();
    pressKey(form(), Qt::Key_Tab);
  }
  static void select(const char* name) {
    field(name).setFocus();
    field(name).selectAll();
  }
};

struct RefusedCase {
  const char* field;
  const char* value;
  const char* message;
};

const std::vector<RefusedCase> refusedValues = {
    {"txtContentMatchingPercent", "", percentMessage},
    {"txtContentMatchingPercent", "x", percentMessage},
    {"txtContentMatchingPercent", "49", percentMessage},
    {"txtContentMatchingPercent", "101", percentMessage},
    {"txtContentMatchingPercent", "-60", percentMessage},
    {"txtFileBufferSize", "", "File buffer size must be numeric"},
    {"txtFileBufferSize", "x", "File buffer size must be numeric"},
    {"txtFileBufferSize", "255", "You must have a file buffer >= 256"},
    {"txtFileBufferSize", "32769", "You must have a file buffer <  32768"},
    {"txtNumberOfFileBuffers", "", "Number of buffers must be numeric"},
    {"txtNumberOfFileBuffers", "1 2", "Number of buffers must be numeric"},
    {"txtNumberOfFileBuffers", "0", "You must have a file buffer > 0"},
    {"txtNumberOfFileBuffers", "100001", "You must have a file buffer <  100000"},
    {"txtMaxDiskSpace", "", "Maximum disk space size must be numeric"},
    {"txtMaxDiskSpace", "50MB", "Maximum disk space size must be numeric"},
    {"txtMaximumSize", "", "Maximum size must be numeric"},
    {"txtMaximumSize", "two", "Maximum size must be numeric"},
    {"txtMaximumSize", "0", "Maximum size must be greater then 0"},
    {"txtMinimumSize", "", "Minimum size must be numeric"},
    {"txtMinimumSize", "\u200F5", "Minimum size must be numeric"},
    {"txtMinimumSize", "-1", "Minimum size must not be less than 0"},
};

TEST_F(MainWindowFields, ARefusedValueIsToldOnceAndHoldsTheFocus) {
  for (const auto& [name, value, message] : refusedValues) {
    openWithFieldOn(name);
    leaveWith(name, value);
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(message)) << name << " " << value;
    EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::ok);
    EXPECT_TRUE(field(name).hasFocus()) << name << " " << value;
    EXPECT_EQ(text(name), value);
    window.unload();
    settle();
    haveProfile("Ann");
  }
}

TEST_F(MainWindowFields, TheValuesAtTheBoundsPass) {
  for (const auto& [name, values] : std::vector<std::pair<const char*, std::vector<const char*>>>{
           {"txtContentMatchingPercent", {"50", "100", " 51", "99."}},
           {"txtFileBufferSize", {"256", "32768", "255.6"}},
           {"txtNumberOfFileBuffers", {"1", "100000", "+7", "1e5"}},
           {"txtMaxDiskSpace", {"-7", "0", "99999999999"}},
           {"txtMaximumSize", {"1", "2147483647"}},
           {"txtMinimumSize", {"0", "2147483647", "-0.4"}}}) {
    openWithFieldOn(name);
    for (const char* value : values) {
      leaveWith(name, value);
      EXPECT_THAT(dialogBoxes.messages, IsEmpty()) << name << " " << value;
      EXPECT_FALSE(field(name).hasFocus()) << name << " " << value;
    }
    window.unload();
    settle();
  }
}

// The failure ends the rule; the field can be left.
TEST_F(MainWindowFields, ANumberThatDoesNotFitIsReportedOnce) {
  for (const auto& [name, rule] : std::vector<std::pair<const char*, const char*>>{
           {"txtFileBufferSize", "txtFileBufferSize_Validate"},
           {"txtNumberOfFileBuffers", "txtNumberOfFileBuffers_Validate"},
           {"txtMaximumSize", "txtMaximumSize_Validate"},
           {"txtMinimumSize", "txtMinimumSize_Validate"},
           {"txtContentMatchingPercent", "txtContentMatchingPercent_LostFocus"}}) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
      openWithFieldOn(name);
      control<QPushButton>("cmdDelList").setDefault(true);
      field(name).setFocus();
      field(name).setText("9e9");
      dialogBoxes.messages.clear();
      pressKey(form(), key);
      EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(rule, "Overflow(6)"))) << name;
      EXPECT_EQ(field(name).hasFocus(), key == Qt::Key_Return) << name;
      window.unload();
      settle();
      haveProfile("Ann");
    }
  }
}

TEST_F(MainWindowFields, BacktabIsHeldToo) {
  openAnn();
  field("txtMinimumSize").setFocus();
  field("txtMinimumSize").setText("");
  pressKey(form(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Minimum size must be numeric"));
  EXPECT_TRUE(field("txtMinimumSize").hasFocus());
}

TEST_F(MainWindowFields, AClickOnAnotherControlIsHeldAndHasNoEffect) {
  openAnn([] {
    setDirectory(1, "C:\\Photos", "I");
    setDirectory(2, "C:\\Music", "I");
  });
  int messages = 0;
  field("txtMinimumSize").setFocus();
  field("txtMinimumSize").setText("x");
  const auto expectHeld = [&](const char* what) {
    EXPECT_EQ(dialogBoxes.messages.size(), static_cast<std::size_t>(++messages)) << what;
    EXPECT_TRUE(field("txtMinimumSize").hasFocus()) << what;
  };
  click(button("cmdStart"));
  expectHeld("Start");
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_FALSE(button("cmdStart").isDown());
  click(button("cmdExit_0"));
  expectHeld("Exit");
  EXPECT_TRUE(window.isLoaded());
  click(box("chkZip"), {8, box("chkZip").height() / 2});
  expectHeld("a box");
  EXPECT_FALSE(box("chkZip").isChecked());
  click(field("txtDescription"));
  expectHeld("another field");
  auto& gridList = control<FlexGrid>("gridList");
  click(*gridList.viewport(), {50, gridList.viewport()->height() / 3});
  expectHeld("the grid");
  EXPECT_EQ(grid().row(), 0);
  click(list("cboProfile"));
  expectHeld("the list of profiles");
  EXPECT_FALSE(list("cboProfile").view()->isVisible());
  QTabBar& tabs = *control<QTabWidget>("tabMain").tabBar();
  click(tabs, tabs.tabRect(1).center());
  expectHeld("the other page");
  EXPECT_EQ(tabs.currentIndex(), 0);
  pressKey(form(), Qt::Key_Tab, Qt::ControlModifier);
  expectHeld("the other page, by keyboard");
  EXPECT_EQ(tabs.currentIndex(), 0);
}

// A shortcut or a screen reader presses a button without moving the focus.
TEST_F(MainWindowFields, AButtonPressedWithoutTheFocusIsHeldOnce) {
  openAnn();
  button("cmdStart").setText("&Start");
  field("txtMaximumSize").setFocus();
  field("txtMaximumSize").setText("0");
  QAccessible::queryAccessibleInterface(&button("cmdExit_0"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::pressAction());
  constexpr int asLongAsAPressIsShown = 200;
  EXPECT_TRUE(QTest::qWaitFor([this] { return !dialogBoxes.messages.empty(); }));
  QTest::qWait(asLongAsAPressIsShown);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Maximum size must be greater then 0"));
  EXPECT_TRUE(window.isLoaded());
  pressKey(form(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialogBoxes.messages.size() > 1; }));
  QTest::qWait(asLongAsAPressIsShown);
  EXPECT_EQ(dialogBoxes.messages.size(), 2U);
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_TRUE(field("txtMaximumSize").hasFocus());
  field("txtMaximumSize").setText("1");
  pressKey(form(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !windows.empty(); }));
  EXPECT_THAT(windows, testing::Contains("frmScanStatus show"));
}

// By the shortcut of its tab, or by a screen reader.
TEST_F(MainWindowFields, APageThatIsTurnedOverARefusedFieldIsTurnedBack) {
  openAnn();
  QTabWidget& pages = control<QTabWidget>("tabMain");
  pages.setTabText(1, "&Global Settings");
  const auto turn = std::vector<std::function<void()>>{
      [&] { pages.setCurrentIndex(1); }, [] { pressKey(form(), Qt::Key_G, Qt::AltModifier); }};
  for (const auto& turnPage : turn) {
    dialogBoxes.messages.clear();
    pages.setCurrentIndex(0);
    field("txtMaximumSize").setFocus();
    field("txtMaximumSize").setText("0");
    turnPage();
    settle();
    EXPECT_THAT(dialogBoxes.messages, ElementsAre("Maximum size must be greater then 0"));
    EXPECT_EQ(pages.currentIndex(), 0);
    EXPECT_TRUE(field("txtMaximumSize").hasFocus());
    field("txtMaximumSize").setText("1");
    turnPage();
    settle();
    EXPECT_EQ(dialogBoxes.messages.size(), 1U);
    EXPECT_EQ(pages.currentIndex(), 1);
  }
}

// A field that a drop changes needs no focus, so that none could be held there.
TEST_F(MainWindowFields, NothingCanBeDroppedIntoAFieldWithARule) {
  openAnn();
  for (const char* name :
       {"txtMinimumSize", "txtMaximumSize", "txtMaxDiskSpace", "txtFileBufferSize",
        "txtNumberOfFileBuffers", "txtContentMatchingPercent", "txtTempPath"})
    EXPECT_FALSE(field(name).acceptDrops()) << name;
}

// Two lines are one number, and that is seen.
TEST_F(MainWindowFields, APasteOfSeveralLinesShowsWhatIsTaken) {
  openAnn();
  select("txtMinimumSize");
  field("txtMinimumSize").insert("\t10\n20\r\n");
  EXPECT_EQ(field("txtMinimumSize").displayText(), "1020");
  pressKey(form(), Qt::Key_Tab);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  showGlobalPage();
  select("txtTempPath");
  field("txtTempPath").insert("C:\\Pho\ntos");
  EXPECT_EQ(field("txtTempPath").displayText(), "C:\\Photos");
}

TEST_F(MainWindowFields, AClickThatTakesNoFocusIsFree) {
  openAnn();
  field("txtMinimumSize").setFocus();
  field("txtMinimumSize").setText("x");
  click(control<QWidget>("labMatching"));
  click(control<QWidget>("fraScanOptions"), {3, 3});
  click(control<QWidget>("sbarStatus"));
  click(field("txtMinimumSize"));
  click(box("chkMatchingOption_2"));  // Disabled.
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_TRUE(field("txtMinimumSize").hasFocus());
}

TEST_F(MainWindowFields, AGoodValueLetsTheClickThrough) {
  openAnn();
  field("txtMinimumSize").setFocus();
  field("txtMinimumSize").setText("7");
  click(box("chkZip"), {8, box("chkZip").height() / 2});
  EXPECT_TRUE(box("chkZip").isChecked());
  EXPECT_TRUE(box("chkZip").hasFocus());
  QTabBar& tabs = *control<QTabWidget>("tabMain").tabBar();
  field("txtMinimumSize").setFocus();
  click(tabs, tabs.tabRect(1).center());
  EXPECT_EQ(tabs.currentIndex(), 1);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowFields, LeavingByTheProgramIsHeldToo) {
  openAnn();
  field("txtMaximumSize").setFocus();
  field("txtMaximumSize").setText("0");
  field("txtDescription").setFocus();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Maximum size must be greater then 0"));
  EXPECT_TRUE(field("txtMaximumSize").hasFocus());
}

TEST_F(MainWindowFields, EnterOnADefaultButtonIsHeldOnce) {
  openAnn();
  auto& start = control<QPushButton>("cmdStart");
  start.setDefault(true);
  field("txtMaximumSize").setFocus();
  field("txtMaximumSize").setText("0");
  pressKey(form(), Qt::Key_Return);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Maximum size must be greater then 0"));
  EXPECT_THAT(windows, IsEmpty());
  field("txtMaximumSize").setText("1");
  pressKey(form(), Qt::Key_Return);
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
  EXPECT_THAT(windows, testing::Contains("frmScanStatus show"));
}

// What was good once may have been changed since.
TEST_F(MainWindowFields, AValueIsLookedAtAtEachAttempt) {
  openAnn();
  control<QPushButton>("cmdDelList").setDefault(true);
  field("txtMaximumSize").setFocus();
  pressKey(form(), Qt::Key_Return);  // Good, and the focus stays.
  field("txtMaximumSize").setText("0");
  typeText(form(), "0");
  field("txtDescription").setFocus();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Maximum size must be greater then 0"));
  pressKey(form(), Qt::Key_Tab);
  EXPECT_EQ(dialogBoxes.messages.size(), 2U);
}

TEST_F(MainWindowFields, GoingToAnotherWindowAsksNoRule) {
  openAnn();
  field("txtMaximumSize").setFocus();
  field("txtMaximumSize").setText("0");
  QWidget other;
  other.show();
  other.activateWindow();
  settle();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowFields, AMeasureMustBeSelected) {
  openAnn();
  showGlobalPage();
  QComboBox& measure = list("cboSizeMeasure_2");
  measure.setCurrentIndex(-1);
  measure.setFocus();
  pressKey(form(), Qt::Key_Tab);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Must specify a Size measure"));
  EXPECT_TRUE(measure.hasFocus());
  pressKey(form(), Qt::Key_Down);
  pressKey(form(), Qt::Key_Tab);
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
  EXPECT_FALSE(measure.hasFocus());
}

TEST_F(MainWindowFields, EachMeasureHasTheRule) {
  openAnn();
  for (const char* name : {"cboSizeMeasure_0", "cboSizeMeasure_1"}) {
    dialogBoxes.messages.clear();
    list(name).setFocus();
    list(name).setCurrentIndex(-1);
    pressKey(form(), Qt::Key_Tab);
    EXPECT_THAT(dialogBoxes.messages, ElementsAre("Must specify a Size measure")) << name;
    list(name).setCurrentIndex(0);
  }
}

// Its own list is no other control.
TEST_F(MainWindowFields, AMeasureCanBeChosenFromItsListWhileNoneIsSelected) {
  openAnn();
  QComboBox& measure = list("cboSizeMeasure_0");
  measure.setFocus();
  measure.setCurrentIndex(-1);
  click(measure);
  EXPECT_TRUE(measure.view()->isVisible());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  measure.hidePopup();
}

TEST_F(MainWindowFields, APercentTakesDigitsAlone) {
  openAnn();
  select("txtContentMatchingPercent");
  typeText(form(), "a7 -.9/:x");
  EXPECT_EQ(text("txtContentMatchingPercent"), "79");
  pressKey(form(), Qt::Key_Backspace);
  EXPECT_EQ(text("txtContentMatchingPercent"), "79");
  typeText(form(), "12");
  EXPECT_EQ(text("txtContentMatchingPercent"), "791");
  pressKey(form(), Qt::Key_Home);
  pressKey(form(), Qt::Key_Delete);
  EXPECT_EQ(text("txtContentMatchingPercent"), "91");
  select("txtContentMatchingPercent");
  typeText(form(), "6");
  EXPECT_EQ(text("txtContentMatchingPercent"), "6");
}

// Desktops give these keys characters, too.
TEST_F(MainWindowFields, KeysThatLeaveAPercentOrTakeItsDigitsOutAreNotSwallowed) {
  openAnn();
  const auto press = [](Qt::Key key, const char* character) {
    QTest::sendKeyEvent(QTest::Click, windowOf(form()), key, character, Qt::NoModifier);
  };
  select("txtContentMatchingPercent");
  press(Qt::Key_Backspace, "\b");
  EXPECT_EQ(text("txtContentMatchingPercent"), "100");
  pressKey(form(), Qt::Key_End);
  press(Qt::Key_Delete, "\x7F");
  pressKey(form(), Qt::Key_Home);
  press(Qt::Key_Delete, "\x7F");
  EXPECT_EQ(text("txtContentMatchingPercent"), "00");
  field("txtContentMatchingPercent").setText("60");
  press(Qt::Key_Tab, "\t");
  EXPECT_FALSE(field("txtContentMatchingPercent").hasFocus());
}

// Keys with Control have characters below the digits.
TEST_F(MainWindowFields, APercentIsNotPastedByItsKey) {
  openAnn();
  QApplication::clipboard()->setText("66");
  select("txtContentMatchingPercent");
  pressKey(form(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text("txtContentMatchingPercent"), "100");
  field("txtContentMatchingPercent").paste();
  EXPECT_EQ(text("txtContentMatchingPercent"), "66");
}

TEST_F(MainWindowFields, ThePercentIsOfNoConcernWhileItIsDisabled) {
  openAnn();
  field("txtContentMatchingPercent").setText("7");
  field("txtContentMatchingPercent").setFocus();
  box("chkMatchingOption_1").setChecked(false);
  pressKey(form(), Qt::Key_Tab);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_FALSE(field("txtContentMatchingPercent").hasFocus());
}

// Whatever is pasted, the field tells what is wrong, and nothing else happens.
TEST_F(MainWindowFields, HostilePastesAreRefusedLikeAnythingElse) {
  const std::vector<QString> hostile = {QString(10000, u'9') + u'x', QString::fromUtf8("\u202E12"),
                                        QString::fromUtf8("１２"), QString(10000, u'a')};
  for (const char* name :
       {"txtMinimumSize", "txtMaximumSize", "txtMaxDiskSpace", "txtFileBufferSize",
        "txtNumberOfFileBuffers", "txtContentMatchingPercent"}) {
    openWithFieldOn(name);
    for (const QString& pasted : hostile) {
      select(name);
      field(name).insert(pasted);
      EXPECT_THAT(dialogBoxes.messages, IsEmpty()) << name;
      pressKey(form(), Qt::Key_Tab);
      EXPECT_EQ(dialogBoxes.messages.size(), 1U) << name;
      dialogBoxes.messages.clear();
      EXPECT_TRUE(field(name).hasFocus()) << name;
    }
    window.unload();
    settle();
    haveProfile("Ann");
  }
}

TEST_F(MainWindowFields, ANumberOfTenThousandDigitsDoesNotFit) {
  openAnn();
  leaveWith("txtMinimumSize", std::string(10000, '9'));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("txtMinimumSize_Validate", "Overflow(6)")));
}

TEST_F(MainWindowFields, ATempPathThatIsThereIsLeftWithoutAWord) {
  openWithFieldOn("txtTempPath");
  leaveWith("txtTempPath", "C:\\Photos");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_FALSE(field("txtTempPath").hasFocus());
}

TEST_F(MainWindowFields, ATempPathLosesOneBackslash) {
  openWithFieldOn("txtTempPath");
  leaveWith("txtTempPath", "C:\\");
  EXPECT_EQ(text("txtTempPath"), "C:");
  leaveWith("txtTempPath", "C:\\Photos\\\\");
  EXPECT_EQ(text("txtTempPath"), "C:\\Photos\\");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowFields, AMissingTempPathIsMade) {
  openWithFieldOn("txtTempPath");
  leaveWith("txtTempPath", "C:\\Photos\\New");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("\"C:\\Photos\\New\" does not exists. Create it?"));
  EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::yesNo);
  EXPECT_TRUE(disk.exists("C:\\Photos\\New"));
  EXPECT_FALSE(field("txtTempPath").hasFocus());
}

TEST_F(MainWindowFields, AMissingTempPathThatIsNotWantedHoldsTheFocus) {
  openWithFieldOn("txtTempPath");
  dialogBoxes.answers = {Answer::no, Answer::no};
  leaveWith("txtTempPath", "C:\\Photos\\New");
  EXPECT_TRUE(field("txtTempPath").hasFocus());
  EXPECT_FALSE(disk.exists("C:\\Photos\\New"));
  click(field("txtMaxDiskSpace"));
  EXPECT_EQ(dialogBoxes.messages.size(), 2U);
  EXPECT_TRUE(field("txtTempPath").hasFocus());
}

// The box has taken the end of the click, but the focus goes where the person wanted.
TEST_F(MainWindowFields, AClickAfterWhichTheTempPathWasMadeMovesTheFocus) {
  openWithFieldOn("txtTempPath");
  field("txtTempPath").setFocus();
  field("txtTempPath").setText("C:\\Photos\\New");
  click(box("chkTransferLocally"), {8, box("chkTransferLocally").height() / 2});
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
  EXPECT_TRUE(box("chkTransferLocally").hasFocus());
  EXPECT_TRUE(box("chkTransferLocally").isChecked());
}

TEST_F(MainWindowFields, OnlyTheLastPartOfATempPathIsMade) {
  openWithFieldOn("txtTempPath");
  leaveWith("txtTempPath", "C:\\No\\Such");
  ASSERT_EQ(dialogBoxes.messages.size(), 2U);
  EXPECT_EQ(dialogBoxes.messages[1], procedureError("txtTempPath_LostFocus", "Path not found(76)"));
  EXPECT_FALSE(disk.exists("C:\\No"));
  EXPECT_FALSE(field("txtTempPath").hasFocus());
}

TEST_F(MainWindowFields, AnEmptyTempPathIsAskedAboutToo) {
  openWithFieldOn("txtTempPath");
  dialogBoxes.answers = {Answer::no};
  leaveWith("txtTempPath", "");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("\"\" does not exists. Create it?"));
}

// Counts real message boxes and closes each by its first button.
class BoxCloser {
 public:
  BoxCloser() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (shown == nullptr) return;
      texts.push_back(shown->text().toStdString());
      shown->defaultButton()->click();
    });
    timer_.start(5);
  }
  std::vector<std::string> texts;

 private:
  QTimer timer_;
};

// A real box takes the focus away from the window and gives it back.
TEST_F(MainWindowFields, RealBoxesComeOnceToo) {
  openAnn();
  QtDialogs real;
  platform.dialogs = &real;
  usePlatform(platform);
  BoxCloser closer;
  field("txtMinimumSize").setFocus();
  field("txtMinimumSize").setText("x");
  pressKey(form(), Qt::Key_Tab);
  settle();
  EXPECT_THAT(closer.texts, ElementsAre("Minimum size must be numeric"));
  EXPECT_EQ(form().focusWidget(), &field("txtMinimumSize"));
  form().activateWindow();
  settle();
  click(button("cmdStart"));
  settle();
  EXPECT_EQ(closer.texts.size(), 2U);
  EXPECT_FALSE(button("cmdStart").isDown());
  form().activateWindow();
  settle();
  field("txtDescription").setFocus();
  settle();
  EXPECT_EQ(closer.texts.size(), 3U);
  EXPECT_EQ(form().focusWidget(), &field("txtMinimumSize"));
}

// After these the field can be left.
TEST_F(MainWindowFields, RealBoxesThatLetTheFocusGoComeOnceToo) {
  openAnn();
  showGlobalPage();
  QtDialogs real;
  platform.dialogs = &real;
  usePlatform(platform);
  BoxCloser closer;
  const auto leave = [](const char* name, const char* value, const std::function<void()>& act) {
    form().activateWindow();
    settle();
    field(name).setFocus();
    field(name).setText(value);
    act();
    settle();
    EXPECT_NE(form().focusWidget(), &field(name)) << name << " " << value;
  };
  const auto tab = [] { pressKey(form(), Qt::Key_Tab); };
  leave("txtTempPath", "C:\\Photos\\One", tab);
  leave("txtTempPath", "C:\\Photos\\Two", [] { click(field("txtMaxDiskSpace")); });
  control<QTabWidget>("tabMain").setCurrentIndex(0);
  leave("txtMinimumSize", "99999999999", tab);
  leave("txtMinimumSize", "99999999999", [] { click(field("txtDescription")); });
  const std::string overflow = procedureError("txtMinimumSize_Validate", "Overflow(6)");
  EXPECT_THAT(closer.texts,
              ElementsAre("\"C:\\Photos\\One\" does not exists. Create it?",
                          "\"C:\\Photos\\Two\" does not exists. Create it?", overflow, overflow));
  EXPECT_TRUE(disk.exists("C:\\Photos\\One"));
  EXPECT_TRUE(disk.exists("C:\\Photos\\Two"));
}

}  // namespace
}  // namespace quernstoke
