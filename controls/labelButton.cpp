#include "controls/labelButton.h"

#include <QFontMetrics>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include "controls/boldFont.h"

namespace quernstoke {

namespace {

constexpr int margin = 2;  // Of the frame that shows the focus.

}  // namespace

LabelButton::LabelButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void LabelButton::setCaption(const QString& caption) {
  caption_ = caption;
  setAccessibleName(caption);
  updateGeometry();
  update();
}

void LabelButton::setBold(bool bold) {
  quernstoke::setBold(*this, bold);
}

QSize LabelButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(caption_), metrics.height() + 2 * margin};
}

void LabelButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  painter.drawItemText(rect(), Qt::AlignCenter | Qt::TextSingleLine, palette(), isEnabled(),
                       caption_, QPalette::WindowText);
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, frame);
}

}  // namespace quernstoke
