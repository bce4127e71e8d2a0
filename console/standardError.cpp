#include "console/standardError.h"

#include <algorithm>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/linux/writeAll.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

bool isControl(char c) {
  constexpr char deleteCharacter = 127;
  return (c >= 0 && c < ' ') || c == deleteCharacter;
}

std::string blanks(std::size_t count) {
  return std::string(count, ' ');
}

}  // namespace

StandardError::StandardError(int descriptor)
    : descriptor_(descriptor), isTerminal_(::isatty(descriptor) == 1) {}

void StandardError::line(std::string_view text) {
  clearProgress();
  std::string shown(text);
  std::ranges::replace_if(shown, isControl, '?');
  put(shown + "\n");
}

void StandardError::showProgress(std::string_view text) {
  // A terminal that is written to its last column may begin a new line.
  const std::string_view shown = firstCharacters(text, columns() - 1);
  const std::size_t length = characterCount(shown);
  const std::size_t stale = shownColumns_ > length ? shownColumns_ - length : 0;
  put("\r" + std::string(shown) + blanks(stale));
  shownColumns_ = length;
}

void StandardError::clearProgress() {
  if (shownColumns_ == 0) return;
  put("\r" + blanks(shownColumns_) + "\r");
  shownColumns_ = 0;
}

// There is nowhere left to tell that telling has failed.
void StandardError::put(std::string_view text) const {
  static_cast<void>(writeAll(descriptor_, text));
}

std::size_t StandardError::columns() const {
  constexpr std::size_t usualColumns = 80;
  winsize size{};
  if (::ioctl(descriptor_, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usualColumns;
  return size.ws_col;
}

}  // namespace quernstoke
