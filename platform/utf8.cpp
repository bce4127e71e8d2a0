#include "platform/utf8.h"

namespace quernstoke {

namespace {

std::size_t sequenceLength(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 1;
}

}  // namespace

Character characterAt(std::string_view text, std::size_t position) {
  constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text[position]);
  if (lead < 0x80) return {lead, 1, true};
  const Character invalid{lead, 1, false};
  const std::size_t length = sequenceLength(lead);
  if (length == 1 || text.size() - position < length) return invalid;
  std::uint32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[position + i]);
    if ((byte & 0xC0U) != 0x80U) return invalid;
    code = (code << 6) | (byte & 0x3FU);
  }
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < smallest[length] || code > 0x10FFFF || isSurrogate) return invalid;
  return {code, length, true};
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count)
    end += characterAt(text, end).length;
  return text.substr(0, end);
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += characterAt(text, at).length)
    ++count;
  return count;
}

}  // namespace quernstoke
