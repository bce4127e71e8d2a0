#pragma once

#include <cstddef>
#include <string_view>

namespace quernstoke {

// The person's side of the program: lines that stay, and below them one that tells of progress and
// is drawn over and over.
class StandardError {
 public:
  explicit StandardError(int descriptor);

  bool isTerminal() const { return isTerminal_; }

  // One line, whatever is in the text: control characters are shown as "?".
  void line(std::string_view text);

  // Draws the progress line, cut to the terminal's width.
  void showProgress(std::string_view text);
  void clearProgress();

 private:
  void put(std::string_view text) const;
  std::size_t columns() const;

  int descriptor_;
  bool isTerminal_;
  std::size_t shownColumns_ = 0;  // Of the progress line.
};

}  // namespace quernstoke
