#pragma once

#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace quernstoke {

class StandardError;

// Shows each message box as one line and answers it by its first button.
class ConsoleDialogs final : public Dialogs {
 public:
  explicit ConsoleDialogs(StandardError& err) : err_(err) {}

  Answer messageBox(std::string_view text, Buttons buttons, std::string_view title,
                    Icon icon) override;
  std::string inputBox(std::string_view prompt, std::string_view title,
                       std::string_view preset) override;
  void beep() override {}

  // Whether a message told that something was not done.
  bool sawFailure() const { return sawFailure_; }

 private:
  StandardError& err_;
  bool sawFailure_ = false;
};

}  // namespace quernstoke
