#pragma once

class QWidget;

namespace quernstoke {

// A list or a row of tabs that has no focus leaves the wheel to what is behind it: who scrolls past
// it changes nothing by accident.
void guardFromWheel(QWidget& control);

}  // namespace quernstoke
