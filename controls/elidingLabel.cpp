#include "controls/elidingLabel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace quernstoke {

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString ElidingLabel::shownText() const {
  return fontMetrics().elidedText(text(), mode_, contentsRect().width());
}

QSize ElidingLabel::sizeHint() const {
  return minimumSizeHint();
}

QSize ElidingLabel::minimumSizeHint() const {
  const QMargins margins = contentsMargins();
  return {0, fontMetrics().height() + margins.top() + margins.bottom()};
}

void ElidingLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(),
                        static_cast<int>(alignment()) | Qt::TextSingleLine, palette(), isEnabled(),
                        shownText(), foregroundRole());
}

}  // namespace quernstoke
