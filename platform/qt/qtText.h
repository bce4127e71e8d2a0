#pragma once

#include <QString>
#include <string_view>

namespace quernstoke {

// Text for the screen. Bytes that are not valid UTF-8 are shown as replacement characters.
inline QString qtText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace quernstoke
