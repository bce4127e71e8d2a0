#include "controls/clickWatch.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QItemSelectionModel>
#include <utility>

namespace quernstoke {

namespace {

// A press that changes the selection is told as such; its release is no second click.
class ClickWatch : public QObject {
 public:
  ClickWatch(QAbstractItemView& view, std::function<void()> click)
      : QObject(&view), click_(std::move(click)) {
    view.viewport()->installEventFilter(this);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
      told_ = true;
      click_();
    });
    connect(&view, &QAbstractItemView::clicked, this, [this] {
      if (!std::exchange(told_, false)) click_();
    });
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) told_ = false;
    return false;
  }

 private:
  std::function<void()> click_;
  bool told_ = false;
};

}  // namespace

void watchClicks(QAbstractItemView& view, std::function<void()> click) {
  new ClickWatch(view, std::move(click));
}

}  // namespace quernstoke
