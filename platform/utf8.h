#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quernstoke {

// One character of a text in UTF-8; a byte that is no part of a valid one is a character of its
// own, with the byte as its code.
struct Character {
  std::uint32_t code;
  std::size_t length;  // In bytes.
  bool isValid;

  bool isAscii() const { return code < 0x80; }
  friend bool operator==(const Character&, const Character&) = default;
};

// REQUIRES: position < text.size().
Character characterAt(std::string_view text, std::size_t position);

// At most `count` characters from the start of a text.
std::string_view firstCharacters(std::string_view text, std::size_t count);
std::size_t characterCount(std::string_view text);

}  // namespace quernstoke
