#include "platform/wildcards.h"

#include <optional>

#include "platform/utf8.h"

namespace quernstoke {

bool hasWildcards(std::string_view name) {
  return name.find_first_of("*?") != std::string_view::npos;
}

namespace {

// A place in a text.
struct Cursor {
  std::string_view text;
  std::size_t at = 0;

  bool isAtEnd() const { return at == text.size(); }
  Character character() const { return characterAt(text, at); }
  bool isAt(char c) const { return !isAtEnd() && text[at] == c; }
  void advance() { at += character().length; }
};

// Both cursors move over one character if it fits.
bool takeOne(Cursor& name, Cursor& pattern) {
  if (pattern.isAtEnd() || (!pattern.isAt('?') && name.character() != pattern.character()))
    return false;
  name.advance();
  pattern.advance();
  return true;
}

}  // namespace

bool matchesWildcards(std::string_view name, std::string_view pattern) {
  // A trailing ".*" also stands for no extension at all, so that "TMP*.*" finds TMP17.
  if (pattern.ends_with(".*") && name.find('.') == std::string_view::npos) pattern.remove_suffix(2);
  // Where to try again: the last star takes one character more each time. What the stars before it
  // took can stay, for it left the most to those behind.
  std::optional<Cursor> starEnd;
  Cursor behindStar{pattern};
  Cursor inName{name};
  Cursor inPattern{pattern};
  while (!inName.isAtEnd()) {
    if (inPattern.isAt('*')) {
      inPattern.advance();
      behindStar = inPattern;
      starEnd = inName;
    } else if (!takeOne(inName, inPattern)) {
      if (!starEnd) return false;
      starEnd->advance();
      inName = *starEnd;
      inPattern = behindStar;
    }
  }
  return pattern.find_first_not_of("*?", inPattern.at) == std::string_view::npos;
}

}  // namespace quernstoke
