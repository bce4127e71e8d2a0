#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// Tells the components of a path, cut at its backslashes, of which there is at least one.
void eachPathComponent(std::string_view path,
                       const std::function<void(std::string_view component, bool isLast)>& visit);

// A path, cut at its backslashes into the components 0 to count - 1.
struct PathComponents {
  Table<std::string> text;
  Int16 count;
};

PathComponents basLoadDirIntoArray(const std::string& path);

// What the labels of a path show: each component, and a backslash between each two of them.
std::vector<std::string> labelCaptions(const PathComponents& components);

// The last label of the selection that a click on a label makes. A backslash stands for the
// component in front of it.
Int16 clickedComponent(const std::vector<std::string>& captions, Int16 label);

// The part of the path that the labels up to this one show.
std::string pathUpTo(const std::vector<std::string>& captions, Int16 lastLabel);

}  // namespace quernstoke
