#pragma once

class QComboBox;

namespace quernstoke {

// A list that has no focus leaves the wheel to what is behind it: who scrolls past it changes
// nothing by accident.
void guardFromWheel(QComboBox& list);

}  // namespace quernstoke
