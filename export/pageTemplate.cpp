#include "export/pageTemplate.h"

#include <algorithm>

#include "platform/utf8.h"

namespace quernstoke {

namespace {

std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
  return line;
}

void addLine(std::string& lines, std::string_view line) {
  lines.append(line).append("\r\n");
}

}  // namespace

PageTemplate splitPageTemplate(std::string_view text) {
  constexpr std::size_t longestTail = 9999;
  PageTemplate page;
  while (!text.empty() && !page.hasMarker) {
    const std::string_view line = takeLine(text);
    const std::size_t marker = line.find(pageTemplateMarker);
    page.hasMarker = marker != std::string_view::npos;
    const std::string_view before = line.substr(0, marker);
    if (!page.hasMarker || !before.empty()) addLine(page.head, before);
    if (page.hasMarker)
      page.tail = firstCharacters(line.substr(marker + pageTemplateMarker.size()), longestTail);
  }
  while (!text.empty())
    addLine(page.rest, takeLine(text));
  return page;
}

}  // namespace quernstoke
