#include "platform/qt/qtDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

#include "testing/qt/input.h"

namespace quernstoke {
namespace {

class QtDialogsTest : public testing::Test {
 protected:
  QtDialogsTest() { QApplication::setApplicationDisplayName("Quernstoke"); }

  // What the person at the screen does with the box that comes up next.
  template <class Box>
  static void whenShown(std::function<void(Box&)> act) {
    QTimer::singleShot(0, [act] {
      auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      act(*box);
    });
  }
  static void willPress(QMessageBox::StandardButton button) {
    whenShown<QMessageBox>([button](QMessageBox& box) { box.button(button)->click(); });
  }
  static void willPressKey(int key) {
    whenShown<QMessageBox>([key](QMessageBox& box) { typeKey(box, key); });
  }

  QtDialogs dialogs;
};

TEST_F(QtDialogsTest, ShowsTextAndTitle) {
  QString text, title;
  whenShown<QMessageBox>([&](QMessageBox& box) {
    text = box.text();
    title = box.windowTitle();
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(dialogs.messageBox("List already exists", Buttons::ok, "Error", Icon::none),
            Answer::ok);
  EXPECT_EQ(text, "List already exists");
  EXPECT_EQ(title, "Error");
}

TEST_F(QtDialogsTest, ShowsTheIconAskedFor) {
  QMessageBox::Icon shown = QMessageBox::NoIcon;
  whenShown<QMessageBox>([&](QMessageBox& box) {
    shown = box.icon();
    box.button(QMessageBox::Cancel)->click();
  });
  dialogs.messageBox("text", Buttons::yesNoCancel, "", Icon::exclamation);
  EXPECT_EQ(shown, QMessageBox::Warning);
}

TEST_F(QtDialogsTest, AnEmptyTitleIsTheProgramsName) {
  QString title;
  whenShown<QMessageBox>([&](QMessageBox& box) {
    title = box.windowTitle();
    box.button(QMessageBox::Ok)->click();
  });
  dialogs.messageBox("text", Buttons::ok, "", Icon::none);
  EXPECT_EQ(title, "Quernstoke");
}

TEST_F(QtDialogsTest, LineBreaksAreLinesAndMarkupIsText) {
  QString text;
  Qt::TextFormat format = Qt::AutoText;
  whenShown<QMessageBox>([&](QMessageBox& box) {
    text = box.text();
    format = box.textFormat();
    box.button(QMessageBox::Ok)->click();
  });
  dialogs.messageBox("Unable to delete file <b>\r\nReason: no", Buttons::ok, "", Icon::none);
  EXPECT_EQ(text, "Unable to delete file <b>\nReason: no");
  EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(QtDialogsTest, KeyHeldDownFromBeforeAnswersNothing) {
  whenShown<QMessageBox>([](QMessageBox& box) {
    for (const auto& [key, text] : {std::pair{Qt::Key_Return, "\r"},
                                    {Qt::Key_Enter, "\r"},
                                    {Qt::Key_Escape, "\x1b"},
                                    {Qt::Key_Y, "y"},
                                    {Qt::Key_N, "n"}})
      for (QWidget* widget :
           {static_cast<QWidget*>(&box), static_cast<QWidget*>(box.button(QMessageBox::Yes))}) {
        repeatKey(*widget, key, text);
        EXPECT_TRUE(box.isVisible()) << text;
      }
    box.button(QMessageBox::No)->click();
  });
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNo, "", Icon::none), Answer::no);
}

TEST_F(QtDialogsTest, KeyHeldDownNeitherTakesNorDismissesAText) {
  whenShown<QInputDialog>([](QInputDialog& box) {
    auto& line = *box.findChild<QLineEdit*>();
    repeatKey(line, Qt::Key_Return, "\r");
    repeatKey(line, Qt::Key_Escape);
    EXPECT_TRUE(box.isVisible());
    repeatKey(line, Qt::Key_A, "a");
    box.accept();
  });
  EXPECT_EQ(dialogs.inputBox("Name", "", ""), "a");
}

TEST_F(QtDialogsTest, EachButtonIsItsAnswer) {
  willPress(QMessageBox::Ok);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::okCancel, "", Icon::none), Answer::ok);
  willPress(QMessageBox::Cancel);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::okCancel, "", Icon::none), Answer::cancel);
  willPress(QMessageBox::Yes);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNo, "", Icon::none), Answer::yes);
  willPress(QMessageBox::No);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNo, "", Icon::none), Answer::no);
  willPress(QMessageBox::Cancel);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNoCancel, "", Icon::none), Answer::cancel);
}

TEST_F(QtDialogsTest, EnterPressesTheFirstButton) {
  willPressKey(Qt::Key_Return);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNoCancel, "", Icon::none), Answer::yes);
  willPressKey(Qt::Key_Return);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::okCancel, "", Icon::none), Answer::ok);
}

TEST_F(QtDialogsTest, ClosingABoxNeverAgrees) {
  willPressKey(Qt::Key_Escape);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNo, "", Icon::none), Answer::no);
  willPressKey(Qt::Key_Escape);
  EXPECT_EQ(dialogs.messageBox("?", Buttons::okCancel, "", Icon::none), Answer::cancel);
  whenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(dialogs.messageBox("?", Buttons::yesNoCancel, "", Icon::none), Answer::cancel);
}

TEST_F(QtDialogsTest, InputBoxGivesWhatIsTyped) {
  QString prompt, title, preset;
  whenShown<QInputDialog>([&](QInputDialog& box) {
    prompt = box.labelText();
    title = box.windowTitle();
    preset = box.textValue();
    box.setTextValue(
        QString::fromUtf8("Gr\xc3\xbc\xc3\x9f"
                          "e"));
    box.accept();
  });
  EXPECT_EQ(dialogs.inputBox("Enter new profile name", "Profile Name", "Untitled"),
            "Gr\xc3\xbc\xc3\x9f"
            "e");
  EXPECT_EQ(prompt, "Enter new profile name");
  EXPECT_EQ(title, "Profile Name");
  EXPECT_EQ(preset, "Untitled");
}

TEST_F(QtDialogsTest, ACancelledInputBoxGivesEmptyText) {
  whenShown<QInputDialog>([](QInputDialog& box) { box.reject(); });
  EXPECT_EQ(dialogs.inputBox("Enter new Description", "", "New Item"), "");
}

TEST_F(QtDialogsTest, AnInputBoxShowsALongName) {
  int room = 0;
  int needed = 0;
  whenShown<QInputDialog>([&](QInputDialog& box) {
    const auto& line = *box.findChild<QLineEdit*>();
    room = line.width();
    needed = line.fontMetrics().horizontalAdvance("Holiday photos, first and second disk");
    box.reject();
  });
  dialogs.inputBox("Enter new profile name", "Profile Name", "Untitled");
  EXPECT_GT(room, needed);
}

// One may type over the preset at once.
TEST_F(QtDialogsTest, ThePresetOfAnInputBoxIsSelected) {
  QString selected;
  whenShown<QInputDialog>([&](QInputDialog& box) {
    selected = box.findChild<QLineEdit*>()->selectedText();
    box.reject();
  });
  dialogs.inputBox("Enter new profile name", "Profile Name", "Untitled");
  EXPECT_EQ(selected, "Untitled");
}

}  // namespace
}  // namespace quernstoke
