#include "controls/wheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace quernstoke {

namespace {

class WheelGuard : public QObject {
 public:
  explicit WheelGuard(QWidget& control) : QObject(&control), control_(control) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel || control_.hasFocus()) return false;
    event->ignore();
    return true;
  }

 private:
  QWidget& control_;
};

}  // namespace

void guardFromWheel(QWidget& control) {
  control.setFocusPolicy(Qt::StrongFocus);  // Not by the wheel.
  control.installEventFilter(new WheelGuard(control));
}

}  // namespace quernstoke
