#include "platform/qt/qtDialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>

#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

constexpr int lettersOfText = 50;

// The widgets take each kind of line break for one of its own.
QString withPlainBreaks(std::string_view text) {
  return qtText(text).replace("\r\n", "\n");
}

QString titleOrDefault(std::string_view title) {
  return title.empty() ? QGuiApplication::applicationDisplayName() : qtText(title);
}

struct ButtonSet {
  QMessageBox::StandardButtons shown;
  QMessageBox::StandardButton first;
  QMessageBox::StandardButton last;
};

ButtonSet buttonSet(Buttons buttons) {
  using Box = QMessageBox;
  switch (buttons) {
    case Buttons::ok:
      return {Box::Ok, Box::Ok, Box::Ok};
    case Buttons::okCancel:
      return {Box::Ok | Box::Cancel, Box::Ok, Box::Cancel};
    case Buttons::yesNo:
      return {Box::Yes | Box::No, Box::Yes, Box::No};
    case Buttons::yesNoCancel:
      return {Box::Yes | Box::No | Box::Cancel, Box::Yes, Box::Cancel};
  }
  return {};
}

QMessageBox::Icon boxIcon(Icon icon) {
  switch (icon) {
    case Icon::information:
      return QMessageBox::Information;
    case Icon::question:
      return QMessageBox::Question;
    case Icon::exclamation:
      return QMessageBox::Warning;
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

Answer answerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::yes;
    case QMessageBox::No:
      return Answer::no;
    case QMessageBox::Cancel:
      return Answer::cancel;
    default:
      return Answer::ok;
  }
}

// A key that is still held down from before must not answer a question that comes up meanwhile. In
// a text it may repeat itself, but neither accept nor dismiss.
class HeldKeys : public QObject {
 public:
  HeldKeys(QDialog& box, bool inText) : box_(box), inText_(inText) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !isOfBox(watched)) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (!key->isAutoRepeat() || (inText_ && !isChoice(key->key()))) return false;
    event->accept();  // A shortcut that is overridden is pressed as a key, and ends here too.
    return true;
  }

 private:
  static bool isChoice(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
  }
  bool isOfBox(QObject* watched) const {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr && (widget == &box_ || box_.isAncestorOf(widget));
  }

  QDialog& box_;
  bool inText_;
};

}  // namespace

Answer QtDialogs::messageBox(std::string_view text, Buttons buttons, std::string_view title,
                             Icon icon) {
  const ButtonSet set = buttonSet(buttons);
  QMessageBox box(QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);  // A file's name may look like markup.
  box.setText(withPlainBreaks(text));
  box.setWindowTitle(titleOrDefault(title));
  box.setIcon(boxIcon(icon));
  box.setStandardButtons(set.shown);
  box.setDefaultButton(set.first);
  box.setEscapeButton(set.last);
  const HeldKeys held(box, false);
  return answerOf(box.exec());
}

std::string QtDialogs::inputBox(std::string_view prompt, std::string_view title,
                                std::string_view preset) {
  QInputDialog box(QApplication::activeWindow());
  box.setLabelText(withPlainBreaks(prompt));
  box.setWindowTitle(titleOrDefault(title));
  box.setTextValue(qtText(preset));
  // Made for a short number otherwise, with its title cut off.
  box.resize(box.fontMetrics().averageCharWidth() * lettersOfText, 0);
  const HeldKeys held(box, true);
  if (box.exec() != QDialog::Accepted) return {};
  return enteredText(box.textValue());
}

void QtDialogs::beep() {
  QApplication::beep();
}

}  // namespace quernstoke
