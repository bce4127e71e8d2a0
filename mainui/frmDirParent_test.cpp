#include "mainui/frmDirParent.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "controls/labelButton.h"
#include "mainui/modalForms.h"
#include "testing/engineTest.h"
#include "testing/qt/person.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ComponentDialog : public EngineTest {
 protected:
  ~ComponentDialog() override {
    Form::deleteAll();
    settle();
  }

  void open(const std::string& path, int subDirectories = 1, int makePermanent = 0) {
    DialogText = path;
    DialogValue = subDirectories;
    DialogValue2 = makePermanent;
    dialog_ = new forms::frmDirParent;
    dialog_->show();
    settle();
  }

  template <class Widget>
  Widget& control(const char* name) {
    return *dialog_->findChild<Widget*>(name);
  }
  LabelButton& label(int index) {
    return control<LabelButton>(("labDirComponent_" + std::to_string(index)).c_str());
  }
  QCheckBox& box(const char* name) { return control<QCheckBox>(name); }
  int labelCount() { return static_cast<int>(dialog_->findChildren<LabelButton*>().size()); }
  std::vector<std::string> captions() {
    std::vector<std::string> found;
    for (int index = 0; index < labelCount(); ++index)
      found.push_back(label(index).caption().toStdString());
    return found;
  }
  // The captions that are bold.
  std::vector<std::string> bold() {
    std::vector<std::string> found;
    for (int index = 0; index < labelCount(); ++index)
      if (label(index).font().bold()) found.push_back(label(index).caption().toStdString());
    return found;
  }
  std::vector<std::string> selectedForScreenReaders() {
    std::vector<std::string> found;
    for (int index = 0; index < labelCount(); ++index) {
      auto* const accessible = QAccessible::queryAccessibleInterface(&label(index));
      if (accessible->text(QAccessible::Description) == "selected")
        found.push_back(accessible->text(QAccessible::Name).toStdString());
    }
    return found;
  }
  int rightEdge(const QWidget& widget) { return widget.x() + widget.width(); }
  void clickLabel(int index) {
    click(label(index));
    settle();
  }
  void press(const char* name) {
    click(control<QPushButton>(name));
    settle();
  }
  bool isOpen() const { return dialog_ && dialog_->isLoaded(); }
  static std::vector<std::string> answer() {
    return {DialogText, std::to_string(DialogValue.raw()), std::to_string(DialogValue2.raw())};
  }
  static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }

  QPointer<forms::frmDirParent> dialog_;
};

TEST_F(ComponentDialog, HasItsCaptions) {
  open("C:\\one");
  EXPECT_EQ(dialog_->windowTitle(), "Choose directory components");
  EXPECT_EQ(control<QLabel>("Label1").text(),
            "Click on one of the components of the below directory to change the selection.");
  EXPECT_EQ(box("chkSubDirectories").text(), "Also exclude Sub-Directories");
  EXPECT_EQ(box("chkMakePermanent").text(), "Make exclusion permanent");
  EXPECT_EQ(control<QPushButton>("cmdOK").text(), "OK");
  EXPECT_EQ(control<QPushButton>("cmdCancel").text(), "Cancel");
  EXPECT_FALSE(control<QLabel>("Image1").pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(ComponentDialog, ShowsEachComponentAndTheBackslashesBetween) {
  open("C:\\one\\two");
  EXPECT_THAT(captions(), ElementsAre("C:", "\\", "one", "\\", "two"));
}

TEST_F(ComponentDialog, OpensWithTheWholePathSelected) {
  open("C:\\one\\two");
  EXPECT_THAT(bold(), ElementsAre("C:", "one", "two"));
  press("cmdOK");
  EXPECT_THAT(answer(), ElementsAre("C:\\one\\two", "1", "0"));
  EXPECT_FALSE(isOpen());
}

TEST_F(ComponentDialog, ClickCutsTheSelectionBehindItsComponent) {
  open("C:\\one\\two");
  clickLabel(2);
  EXPECT_THAT(bold(), ElementsAre("C:", "one"));
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\one");
}

TEST_F(ComponentDialog, ClickOnABackslashSelectsUpToTheComponentBeforeIt) {
  open("C:\\one\\two");
  clickLabel(3);
  EXPECT_THAT(bold(), ElementsAre("C:", "one"));
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\one");
}

TEST_F(ComponentDialog, DriveComesWithoutItsRoot) {
  open("C:\\one\\two");
  clickLabel(0);
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:");
}

TEST_F(ComponentDialog, SelectionCanGrowAgain) {
  open("C:\\one\\two");
  clickLabel(0);
  clickLabel(4);
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\one\\two");
}

TEST_F(ComponentDialog, LabelsStandSideBySideWhateverIsBold) {
  open("C:\\one\\two");
  constexpr int gap = 3;  // 50 twips.
  for (const int last : {4, 0, 2}) {
    clickLabel(last);
    for (int index = 1; index < labelCount(); ++index) {
      EXPECT_EQ(label(index).x(), rightEdge(label(index - 1)) + gap) << last << index;
      EXPECT_EQ(label(index).y(), label(0).y());
      EXPECT_EQ(label(index).width(), label(index).sizeHint().width());
    }
    EXPECT_EQ(rightEdge(control<QFrame>("Shape1")), rightEdge(label(last)) + 1) << last;
  }
}

TEST_F(ComponentDialog, OnlyComponentsHaveAPointerOfTheirOwn) {
  open("C:\\one");
  EXPECT_EQ(label(0).cursor().shape(), Qt::PointingHandCursor);
  EXPECT_EQ(label(1).cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(label(2).cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(ComponentDialog, ScreenReadersAreToldWhatIsSelected) {
  open("C:\\one\\two");
  clickLabel(2);
  EXPECT_THAT(selectedForScreenReaders(), ElementsAre("C:", "\\", "one"));
  EXPECT_FALSE(control<QWidget>("fraDirComponents").accessibleName().isEmpty());
}

TEST_F(ComponentDialog, NamesAreShownAsTheyAre) {
  open("C:\\R&B <b>x</b>\\\xFF");
  EXPECT_EQ(label(2).caption(), "R&B <b>x</b>");
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\R&B <b>x</b>\\\xFF");
}

// The boxes.

TEST_F(ComponentDialog, BoxesStartAsTold) {
  open("C:\\one", 1, 0);
  EXPECT_TRUE(box("chkSubDirectories").isChecked());
  EXPECT_FALSE(box("chkMakePermanent").isChecked());
  press("cmdCancel");
  open("C:\\one", 0, 1);
  EXPECT_FALSE(box("chkSubDirectories").isChecked());
  EXPECT_TRUE(box("chkMakePermanent").isChecked());
}

TEST_F(ComponentDialog, BoxesAreGivenBack) {
  open("C:\\one", 1, 0);
  pressKey(*dialog_, Qt::Key_Tab);
  pressKey(*dialog_, Qt::Key_Space);
  pressKey(*dialog_, Qt::Key_Tab);
  pressKey(*dialog_, Qt::Key_Space);
  press("cmdOK");
  EXPECT_THAT(answer(), ElementsAre("C:\\one", "0", "1"));
}

TEST_F(ComponentDialog, DimmedBoxStaysSoUntilItIsClicked) {
  open("C:\\one", 0, 2);
  EXPECT_EQ(box("chkMakePermanent").checkState(), Qt::PartiallyChecked);
  press("cmdOK");
  EXPECT_THAT(answer(), ElementsAre("C:\\one", "0", "2"));
}

TEST_F(ComponentDialog, ClicksClearADimmedBoxAndThenTickIt) {
  open("C:\\one", 0, 2);
  QCheckBox& permanent = box("chkMakePermanent");
  std::vector<Qt::CheckState> states;
  for (int times = 0; times < 3; ++times) {
    permanent.click();
    states.push_back(permanent.checkState());
  }
  EXPECT_THAT(states, ElementsAre(Qt::Unchecked, Qt::Checked, Qt::Unchecked));
}

TEST_F(ComponentDialog, WithNeitherToSetThereAreNoBoxes) {
  open("C:\\one", -1, -1);
  EXPECT_FALSE(box("chkSubDirectories").isVisible());
  EXPECT_FALSE(box("chkMakePermanent").isVisible());
  press("cmdOK");
  EXPECT_THAT(answer(), ElementsAre("C:\\one", "0", "0"));
}

TEST_F(ComponentDialog, OneBoxToSetShowsBoth) {
  open("C:\\one", -1, 1);
  EXPECT_TRUE(box("chkSubDirectories").isVisible());
  EXPECT_TRUE(box("chkMakePermanent").isVisible());
  EXPECT_FALSE(box("chkSubDirectories").isChecked());
}

TEST_F(ComponentDialog, ValueThatNoBoxHasIsReported) {
  open("C:\\one", 3, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(testing::StartsWith("Procedure error in "
                                                                    "'Form_Load'.")));
}

TEST_F(ComponentDialog, PathOfMorePartsThanCanBeCountedIsReportedAndShowsNone) {
  open(std::string(32768, '\\'), 0, 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadDirIntoArray", "Overflow(6)")));
  dialogBoxes.messages.clear();
  press("cmdCancel");
  settle();
  std::string path = "C:";
  for (int part = 0; part < 20'000; ++part)
    path += "\\p";
  open(path, 0, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basProcessDir", "Overflow(6)")));
}

// Leaving.

TEST_F(ComponentDialog, CancelEscapeAndTheCloseBoxChooseNothing) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdCancel"); },
                                                   [&] { pressKey(*dialog_, Qt::Key_Escape); },
                                                   [&] { dialog_->close(); }};
  for (const auto& leave : ways) {
    open("C:\\one", 1, 1);
    leave();
    EXPECT_FALSE(isOpen());
    EXPECT_THAT(answer(), ElementsAre("", "0", "0"));
    settle();
  }
}

TEST_F(ComponentDialog, RunsUntilItIsClosed) {
  DialogText = "C:\\one";
  auto* const dialog = new forms::frmDirParent;
  QTimer::singleShot(0, dialog, [&] { dialog->findChild<QPushButton*>("cmdOK")->click(); });
  dialog->showModal();
  EXPECT_TRUE(dialog->isUnloaded());
  EXPECT_EQ(DialogText, "C:\\one");
}

TEST_F(ComponentDialog, ComingBackToTheWindowKeepsTheSelection) {
  open("C:\\one\\two");
  clickLabel(0);
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(dialog_, &activation);
  settle();
  EXPECT_THAT(bold(), ElementsAre("C:"));
}

// The keyboard.

TEST_F(ComponentDialog, BlankSelectsUpToTheComponentWithTheFocus) {
  open("C:\\one\\two");
  EXPECT_EQ(focused(), "labDirComponent_4");
  pressKey(*dialog_, Qt::Key_Backtab);
  pressKey(*dialog_, Qt::Key_Space);
  EXPECT_THAT(bold(), ElementsAre("C:", "one"));
  pressKey(*dialog_, Qt::Key_Left);
  EXPECT_EQ(focused(), "labDirComponent_0");
}

TEST_F(ComponentDialog, EnterTakesTheSelection) {
  open("C:\\one\\two");
  pressKey(*dialog_, Qt::Key_Return);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogText, "C:\\one\\two");
}

TEST_F(ComponentDialog, TabGoesThroughItInOrder) {
  open("C:\\one\\two");
  label(0).setFocus();
  std::vector<std::string> order;
  for (int times = 0; times < 8; ++times) {
    order.push_back(focused());
    pressKey(*dialog_, Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("labDirComponent_0", "labDirComponent_2", "labDirComponent_4",
                                 "chkSubDirectories", "chkMakePermanent", "cmdOK", "cmdCancel",
                                 "labDirComponent_0"));
}

// Long paths.

TEST_F(ComponentDialog, LongPathIsScrolledWithinTheScreen) {
  std::string path = "C:";
  for (int i = 0; i < 40; ++i)
    path += "\\component " + std::to_string(i);
  open(path);
  EXPECT_EQ(labelCount(), 81);
  EXPECT_LE(dialog_->width(), dialog_->screen()->availableSize().width());
  QScrollBar& bar = *control<QScrollArea>("areaPath").horizontalScrollBar();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_FALSE(label(80).visibleRegion().isEmpty());
  label(2).setFocus();
  pressKey(*dialog_, Qt::Key_Backtab);
  EXPECT_EQ(focused(), "labDirComponent_0");
  EXPECT_FALSE(label(0).visibleRegion().isEmpty());
  press("cmdOK");
  EXPECT_EQ(DialogText, path);
}

TEST_F(ComponentDialog, ShortPathIsSeenWhole) {
  open("C:\\home\\ann\\Pictures");
  for (int index = 0; index < labelCount(); ++index)
    EXPECT_EQ(label(index).visibleRegion().boundingRect(), label(index).rect()) << index;
  EXPECT_FALSE(control<QScrollArea>("areaPath").horizontalScrollBar()->isVisible());
}

}  // namespace
}  // namespace quernstoke
