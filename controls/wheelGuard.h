#pragma once

class QComboBox;
class QScrollBar;

namespace quernstoke {

// A list that has no focus leaves the wheel to what is behind it: who scrolls past it changes
// nothing by accident.
void guardFromWheel(QComboBox& list);

// The wheel moves a bar by single steps, three to a notch, each of them told as one.
void stepByWheel(QScrollBar& bar);

}  // namespace quernstoke
