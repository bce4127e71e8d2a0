#pragma once

#include <QWidget>
#include <functional>
#include <vector>

namespace quernstoke {

// Tells of the controls of a form that have a help text: its number, the dynamic property
// helpContextId, when the pointer moves over the control or the keyboard brings it the focus, and
// -1 when the pointer moves over one of the backgrounds itself. All controls must be there.
void watchForHelp(QWidget& form, std::vector<const QWidget*> backgrounds,
                  std::function<void(int)> show);

}  // namespace quernstoke
