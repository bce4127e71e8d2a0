#include "controls/wheelGuard.h"

#include <QComboBox>
#include <QEvent>

namespace quernstoke {

namespace {

class WheelGuard : public QObject {
 public:
  explicit WheelGuard(QComboBox& list) : QObject(&list), list_(list) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel || list_.hasFocus()) return false;
    event->ignore();
    return true;
  }

 private:
  QComboBox& list_;
};

}  // namespace

void guardFromWheel(QComboBox& list) {
  list.setFocusPolicy(Qt::StrongFocus);  // Not by the wheel.
  list.installEventFilter(new WheelGuard(list));
}

}  // namespace quernstoke
