#include "platform/qt/qtText.h"

#include <algorithm>

namespace quernstoke {

namespace {

// Half of a surrogate pair, which stands in no valid text, marks a byte that is no UTF-8.
constexpr char16_t firstMark = 0xDC80;
constexpr char16_t lastMark = 0xDCFF;

QString fromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The valid character at the start of a text; empty if there is none.
std::string_view firstCharacter(std::string_view text) {
  constexpr std::size_t longest = 4;
  for (std::size_t length = 1; length <= std::min(longest, text.size()); ++length) {
    const std::string_view character = text.substr(0, length);
    if (fromUtf8(character).toUtf8() == QByteArrayView(character.data(), qsizetype(length)))
      return character;
  }
  return {};
}

QString withMarks(std::string_view text) {
  QString marked;
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    if (character.empty())
      marked += QChar(static_cast<char16_t>(firstMark + (text.front() & 0x7F)));
    else
      marked += fromUtf8(character);
    text.remove_prefix(std::max<std::size_t>(character.size(), 1));
  }
  return marked;
}

}  // namespace

QString qtText(std::string_view text) {
  const QString plain = fromUtf8(text);
  return plain.contains(QChar::ReplacementCharacter) ? withMarks(text) : plain;
}

std::string engineText(QStringView text) {
  std::string bytes;
  qsizetype start = 0;
  for (qsizetype i = 0; i <= text.size(); ++i) {
    const bool isMark = i < text.size() && text[i] >= firstMark && text[i] <= lastMark &&
                        (i == 0 || !text[i - 1].isHighSurrogate());
    if (!isMark && i < text.size()) continue;
    bytes += text.sliced(start, i - start).toUtf8().toStdString();
    if (isMark) bytes += static_cast<char>(text[i].unicode() - firstMark + 0x80);
    start = i + 1;
  }
  return bytes;
}

std::string enteredText(QString text) {
  text.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
  return engineText(text);
}

}  // namespace quernstoke
