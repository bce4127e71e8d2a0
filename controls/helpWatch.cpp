#include "controls/helpWatch.h"

#include <QEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QVariant>
#include <algorithm>
#include <utility>

namespace quernstoke {

namespace {

constexpr int noHelp = -1;

bool movedByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

class HelpWatch : public QObject {
 public:
  HelpWatch(QWidget& form, std::vector<const QWidget*> backgrounds, std::function<void(int)> show)
      : QObject(&form), backgrounds_(std::move(backgrounds)), show_(std::move(show)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto& widget = static_cast<QWidget&>(*watched);
    const QVariant id = widget.property("helpContextId");
    const bool pointed = event->type() == QEvent::MouseMove;
    const bool focused = event->type() == QEvent::FocusIn &&
                         movedByKeyboard(static_cast<QFocusEvent*>(event)->reason());
    if (id.isValid() && (pointed || focused)) show_(id.toInt());
    if (pointed && isBackground(widget, static_cast<QMouseEvent*>(event)->position().toPoint()))
      show_(noHelp);
    return false;
  }

 private:
  // A move over a label passes on to what lies behind it, and is none over that.
  bool isBackground(const QWidget& widget, QPoint at) const {
    return std::find(backgrounds_.begin(), backgrounds_.end(), &widget) != backgrounds_.end() &&
           widget.childAt(at) == nullptr;
  }

  std::vector<const QWidget*> backgrounds_;
  std::function<void(int)> show_;
};

}  // namespace

void watchForHelp(QWidget& form, std::vector<const QWidget*> backgrounds,
                  std::function<void(int)> show) {
  auto* const watch = new HelpWatch(form, std::move(backgrounds), std::move(show));
  for (QWidget* child : form.findChildren<QWidget*>()) {
    child->setMouseTracking(true);
    child->installEventFilter(watch);
  }
}

}  // namespace quernstoke
