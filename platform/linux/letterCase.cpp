#include "platform/linux/letterCase.h"

#include <clocale>
#include <cstdint>
#include <cwctype>

#include "platform/utf8.h"

namespace quernstoke {

namespace {

// The one locale that says what a capital letter is, whatever language the person speaks.
locale_t unicodeLocale() {
  static const locale_t locale = [] {
    for (const char* name : {"C.UTF-8", "en_US.UTF-8", ""})
      if (const locale_t found = ::newlocale(LC_CTYPE_MASK, name, locale_t{})) return found;
    return ::newlocale(LC_ALL_MASK, "C", locale_t{});
  }();
  return locale;
}

void append(std::uint32_t code, std::string& into) {
  const auto continuation = [&](unsigned shift) {
    into += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    into += static_cast<char>(code);
  } else if (code < 0x800) {
    into += static_cast<char>(0xC0U | (code >> 6));
    continuation(0);
  } else if (code < 0x10000) {
    into += static_cast<char>(0xE0U | (code >> 12));
    continuation(6);
    continuation(0);
  } else {
    into += static_cast<char>(0xF0U | (code >> 18));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

char asciiLower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

char asciiUpper(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

std::uint32_t lowerCode(std::uint32_t code) {
  return static_cast<std::uint32_t>(::towlower_l(static_cast<wint_t>(code), unicodeLocale()));
}

std::uint32_t upperCode(std::uint32_t code) {
  return static_cast<std::uint32_t>(::towupper_l(static_cast<wint_t>(code), unicodeLocale()));
}

template <class MapByte, class MapCode>
std::string mapped(std::string_view text, MapByte mapByte, MapCode mapCode) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const char byte = text[i];
    if (static_cast<unsigned char>(byte) < 0x80) {
      result += mapByte(byte);
      ++i;
      continue;
    }
    const Character character = characterAt(text, i);
    if (character.isValid)
      append(mapCode(character.code), result);
    else
      result += byte;
    i += character.length;
  }
  return result;
}

bool sameLetter(const Character& left, const Character& right) {
  if (left == right) return true;
  if (!left.isValid || !right.isValid) return false;
  if (left.isAscii() && right.isAscii())
    return asciiLower(static_cast<char>(left.code)) == asciiLower(static_cast<char>(right.code));
  return lowerCode(left.code) == lowerCode(right.code) ||
         upperCode(left.code) == upperCode(right.code);
}

}  // namespace

std::string lowerCase(std::string_view text) {
  return mapped(text, asciiLower, lowerCode);
}

std::string upperCase(std::string_view text) {
  return mapped(text, asciiUpper, upperCode);
}

bool sameIgnoringCase(std::string_view left, std::string_view right) {
  std::size_t l = 0;
  std::size_t r = 0;
  while (l < left.size() && r < right.size()) {
    const Character leftCharacter = characterAt(left, l);
    const Character rightCharacter = characterAt(right, r);
    if (!sameLetter(leftCharacter, rightCharacter)) return false;
    l += leftCharacter.length;
    r += rightCharacter.length;
  }
  return l == left.size() && r == right.size();
}

}  // namespace quernstoke
