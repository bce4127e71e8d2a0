#include "catalogue/fullFilePath.h"

#include "core/procedure.h"
#include "core/table.h"
#include "platform/controls.h"

namespace quernstoke {

namespace {

constexpr int lastComponent = 32;
constexpr std::string_view ellipsis = "...";

struct Component {
  std::string text;
  Int32 width;
  bool dropped = false;
};

struct SplitPath {
  Table<Component> components;
  Int32 count;
};

SplitPath splitPath(std::string_view path, const TextRuler& ruler) {
  SplitPath split;
  split.components.redim(lastComponent, false);
  for (std::size_t start = 0; start <= path.size(); ++split.count) {
    const std::size_t end = std::min(path.find_first_of("/\\", start), path.size());
    Component& component = split.components[split.count];
    component.text = path.substr(start, end - start);
    component.width = ruler.width("\\" + component.text);
    start = end + 1;
  }
  return split;
}

Int32 totalWidth(const SplitPath& path, Int32 droppedWidth) {
  Int32 sum;
  for (Int32 i = 0; i < path.count; ++i)
    sum += path.components[i].dropped ? droppedWidth : path.components[i].width;
  return sum;
}

// Drops components from the middle outward, the right one of two first, never the first or the
// last, until the rest fits.
void dropMiddle(SplitPath& path, Int32 targetWidth, Int32 droppedWidth) {
  const Int32 middle = path.count / 2 + path.count % 2 - 1;
  for (Int32 distance = 0; middle + distance + 1 < path.count && middle - distance >= 1;) {
    if (totalWidth(path, droppedWidth) <= targetWidth) return;
    Component& right = path.components[middle + distance];
    if (!right.dropped) {
      right.dropped = true;
    } else {
      path.components[middle - distance].dropped = true;
      ++distance;
    }
  }
}

std::string joined(const SplitPath& path) {
  std::string text;
  bool inDroppedRun = false;
  for (Int32 i = 0; i < path.count; ++i) {
    const Component& component = path.components[i];
    if (component.text.empty()) break;
    if (component.dropped && inDroppedRun) continue;
    if (i > 0) text += '\\';
    text += component.dropped ? ellipsis : component.text;
    inDroppedRun = component.dropped;
  }
  return text;
}

}  // namespace

std::string basBuildFullFilePath(Int32 targetWidth, std::string_view name,
                                 std::string_view directory, const TextRuler& ruler) {
  return procedure("basBuildFullFilePath", [&] {
    std::string full(directory);
    if (!directory.empty()) full += '\\';
    full += name;
    if (ruler.width(full) < targetWidth) return full;

    SplitPath path = splitPath(full, ruler);
    dropMiddle(path, targetWidth, ruler.width("\\" + std::string(ellipsis)));
    return joined(path);
  });
}

}  // namespace quernstoke
