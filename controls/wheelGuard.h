#pragma once

class QScrollBar;
class QWidget;

namespace quernstoke {

// A list or a row of tabs that has no focus leaves the wheel to what is behind it: who scrolls past
// it changes nothing by accident.
void guardFromWheel(QWidget& control);

// The wheel moves a bar by single steps, three to a notch, each of them told as one.
void stepByWheel(QScrollBar& bar);

}  // namespace quernstoke
