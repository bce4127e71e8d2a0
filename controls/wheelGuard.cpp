#include "controls/wheelGuard.h"

#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWidget>
#include <cstdlib>

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

void guardFromWheel(QWidget& control) {
  control.setFocusPolicy(Qt::StrongFocus);  // Not by the wheel.
  control.installEventFilter(new WheelGuard(control));
}

void stepByWheel(QScrollBar& bar) {
  bar.installEventFilter(new WheelSteps(bar));
}

}  // namespace quernstoke
