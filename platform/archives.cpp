#include "platform/archives.h"

namespace quernstoke {

namespace {

bool isBracket(char c) {
  return c == '[' || c == ']';
}

}  // namespace

std::string withEscapedBrackets(std::string_view name) {
  std::string escaped;
  for (const char c : name) {
    if (isBracket(c)) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string withoutEscapedBrackets(std::string_view name) {
  std::string plain;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool escapes = name[i] == '\\' && i + 1 < name.size() && isBracket(name[i + 1]);
    if (!escapes) plain += name[i];
  }
  return plain;
}

}  // namespace quernstoke
