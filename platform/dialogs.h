#pragma once

#include <string>
#include <string_view>

namespace quernstoke {

enum class Buttons { ok, okCancel, yesNo, yesNoCancel };
enum class Answer { ok, cancel, yes, no };
enum class Icon { none, information, question, exclamation, critical };

// Questions and messages to the person at the screen.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // An empty title stands for the program's default title.
  virtual Answer messageBox(std::string_view text, Buttons buttons = Buttons::ok,
                            std::string_view title = {}, Icon icon = Icon::none) = 0;
  // Returns what was typed, or empty text when the box was cancelled.
  virtual std::string inputBox(std::string_view prompt, std::string_view title,
                               std::string_view preset) = 0;
  virtual void beep() = 0;
};

}  // namespace quernstoke
