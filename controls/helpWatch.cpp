#include "controls/helpWatch.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QVariant>
#include <algorithm>
#include <utility>

#include "controls/form.h"

namespace quernstoke {

namespace {

constexpr int noHelp = -1;

bool movedByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

QVariant helpIdOf(const QWidget& widget) {
  const auto* const area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
  const bool isShownByArea = area != nullptr && area->viewport() == &widget;
  return (isShownByArea ? *area : widget).property("helpContextId");
}

class HelpWatch : public QObject {
 public:
  HelpWatch(Form& form, std::vector<const QWidget*> backgrounds, std::function<void(int)> show)
      : QObject(&form), form_(form), backgrounds_(std::move(backgrounds)), show_(std::move(show)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto& widget = static_cast<QWidget&>(*watched);
    const QVariant id = helpIdOf(widget);
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
    if (std::find(backgrounds_.begin(), backgrounds_.end(), &widget) == backgrounds_.end())
      return false;
    const QWidget* const over = widget.childAt(at);
    return over == nullptr || over == form_.ground();
  }

  const Form& form_;
  std::vector<const QWidget*> backgrounds_;
  std::function<void(int)> show_;
};

}  // namespace

void watchForHelp(Form& form, std::vector<const QWidget*> backgrounds,
                  std::function<void(int)> show) {
  auto* const watch = new HelpWatch(form, std::move(backgrounds), std::move(show));
  form.setMouseTracking(true);
  form.installEventFilter(watch);
  for (QWidget* child : form.findChildren<QWidget*>()) {
    child->setMouseTracking(true);
    child->installEventFilter(watch);
  }
}

}  // namespace quernstoke
