#pragma once

#include <QWidget>

namespace quernstoke {

inline void setBold(QWidget& widget, bool bold) {
  QFont font = widget.font();
  font.setBold(bold);
  widget.setFont(font);
}

}  // namespace quernstoke
