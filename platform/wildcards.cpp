#include "platform/wildcards.h"

namespace quernstoke {

bool hasWildcards(std::string_view name) {
  return name.find_first_of("*?") != std::string_view::npos;
}

namespace {

bool matches(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  const std::string_view rest = pattern.substr(1);
  if (pattern.front() == '*')
    return matches(name, rest) || (!name.empty() && matches(name.substr(1), pattern));
  if (name.empty()) return pattern.front() == '?' && matches(name, rest);
  return (pattern.front() == '?' || pattern.front() == name.front()) &&
         matches(name.substr(1), rest);
}

}  // namespace

bool matchesWildcards(std::string_view name, std::string_view pattern) {
  // A trailing ".*" also stands for no extension at all, so that "TMP*.*" finds TMP17.
  if (pattern.ends_with(".*") && name.find('.') == std::string_view::npos) pattern.remove_suffix(2);
  return matches(name, pattern);
}

}  // namespace quernstoke
