#include "controls/wheelGuard.h"

#include <QComboBox>
#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <cstdlib>

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

class WheelSteps : public QObject {
 public:
  explicit WheelSteps(QScrollBar& bar) : QObject(&bar), bar_(bar) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    turn(static_cast<QWheelEvent*>(event)->angleDelta().y());
    event->accept();
    return true;
  }

 private:
  // What is left of a step counts towards the next, unless the wheel turns back.
  void turn(int angle) {
    constexpr int anglePerStep = 40;
    if ((angle > 0) != (left_ > 0)) left_ = 0;
    left_ += angle;
    const auto action =
        left_ > 0 ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd;
    for (; std::abs(left_) >= anglePerStep; left_ -= left_ > 0 ? anglePerStep : -anglePerStep)
      bar_.triggerAction(action);
  }

  QScrollBar& bar_;
  int left_ = 0;
};

}  // namespace

void guardFromWheel(QComboBox& list) {
  list.setFocusPolicy(Qt::StrongFocus);  // Not by the wheel.
  list.installEventFilter(new WheelGuard(list));
}

void stepByWheel(QScrollBar& bar) {
  bar.installEventFilter(new WheelSteps(bar));
}

}  // namespace quernstoke
