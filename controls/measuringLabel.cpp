#include "controls/measuringLabel.h"

#include <QFontMetrics>

#include "controls/boldFont.h"
#include "controls/units.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

MeasuringLabel::MeasuringLabel(QWidget* parent) : QLabel(parent) {
  hide();  // Also when its window is shown.
}

std::int32_t MeasuringLabel::width(std::string_view text) const {
  return twipsFromPixels(QFontMetrics(font()).horizontalAdvance(qtText(text)));
}

void MeasuringLabel::setFont(std::string_view font) {
  QFont named;
  if (named.fromString(qtText(font))) setFont(named);
}

void MeasuringLabel::setBold(bool bold) {
  quernstoke::setBold(*this, bold);
}

}  // namespace quernstoke
