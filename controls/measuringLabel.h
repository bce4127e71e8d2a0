#pragma once

#include <QLabel>
#include <cstdint>
#include <string_view>

#include "platform/controls.h"

namespace quernstoke {

// A label that is never seen and tells how wide text is in its font, that of the window unless
// another is set. Widths are in twips.
class MeasuringLabel : public QLabel, public BoldRuler {
  Q_OBJECT

 public:
  explicit MeasuringLabel(QWidget* parent = nullptr);

  using QLabel::setFont;
  using QLabel::width;
  std::int32_t width(std::string_view text) const override;
  void setFont(std::string_view font) override;
  void setBold(bool bold) override;
};

}  // namespace quernstoke
