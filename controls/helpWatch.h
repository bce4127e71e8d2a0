#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace quernstoke {

class Form;

// Tells of the controls of a form that have a help text: its number, the dynamic property
// helpContextId, when the pointer moves over the control or the keyboard brings it the focus, and
// -1 when the pointer moves over one of the backgrounds itself, of which the form may be one. The
// number of a control that scrolls is also that of what it shows. All controls must be there.
void watchForHelp(Form& form, std::vector<const QWidget*> backgrounds,
                  std::function<void(int)> show);

}  // namespace quernstoke
