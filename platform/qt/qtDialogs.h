#pragma once

#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace quernstoke {

// Boxes over the active window. The default title is the application's display name. The first
// button is the default one; closing a box answers like its last button.
class QtDialogs final : public Dialogs {
 public:
  Answer messageBox(std::string_view text, Buttons buttons = Buttons::ok,
                    std::string_view title = {}, Icon icon = Icon::none) override;
  std::string inputBox(std::string_view prompt, std::string_view title,
                       std::string_view preset) override;
  void beep() override;
};

}  // namespace quernstoke
