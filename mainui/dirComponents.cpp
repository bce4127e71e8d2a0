#include "mainui/dirComponents.h"

#include <algorithm>

#include "core/procedure.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

constexpr int lastComponent = 32;
constexpr int growth = 32;
constexpr std::size_t longestRest = 999;
constexpr std::string_view separator = "\\";

void append(PathComponents& components, std::string_view text) {
  Table<std::string>& table = components.text;
  if (Int32(components.count) > table.upperBound()) table.redim(table.upperBound() + growth, true);
  table[components.count] = text;
  ++components.count;
}

const std::string& captionOf(const std::vector<std::string>& captions, Int16 label) {
  return captions.at(static_cast<std::size_t>(label.raw()));
}

}  // namespace

void eachPathComponent(std::string_view path,
                       const std::function<void(std::string_view component, bool isLast)>& visit) {
  for (std::size_t end; (end = path.find(separator)) != std::string_view::npos;) {
    visit(path.substr(0, end), false);
    path.remove_prefix(end + separator.size());
  }
  visit(firstCharacters(path, longestRest), true);
}

PathComponents basLoadDirIntoArray(const std::string& path) {
  return procedure("basLoadDirIntoArray", [&] {
    PathComponents components;
    components.text.redim(lastComponent, false);
    eachPathComponent(path,
                      [&](std::string_view component, bool) { append(components, component); });
    return components;
  });
}

std::vector<std::string> labelCaptions(const PathComponents& components) {
  std::vector<std::string> captions;
  for (Int16 i = 0; i < components.count; ++i) {
    if (i > 0) captions.emplace_back(separator);
    captions.push_back(components.text[i]);
  }
  return captions;
}

Int16 clickedComponent(const std::vector<std::string>& captions, Int16 label) {
  if (captionOf(captions, label) == separator) --label;
  return std::max(label, Int16(0));
}

std::string pathUpTo(const std::vector<std::string>& captions, Int16 lastLabel) {
  std::string path;
  for (Int16 label = 0; label <= lastLabel; ++label)
    path += captionOf(captions, label);
  return path;
}

}  // namespace quernstoke
