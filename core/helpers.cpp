#include "core/helpers.h"

#include "core/procedure.h"
#include "core/text.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

constexpr std::size_t longestName = 999;
constexpr std::size_t longestType = 99;

}  // namespace

void basGetFilePath(std::string_view path, std::string& name, std::string& directory) {
  procedure("basGetFilePath", [&] {
    const std::size_t separator = path.find_last_of("/\\");
    if (separator == std::string_view::npos) {
      name = path;
      directory.clear();
      return;
    }
    const std::string_view before = path.substr(0, separator);
    name = firstCharacters(path.substr(separator + 1), longestName);
    directory = before;
  });
}

std::string basGetFileType(std::string_view name) {
  return procedure("basGetFileType", [&]() -> std::string {
    const std::size_t point = name.rfind('.');
    if (point == std::string_view::npos) return {};
    return upper(firstCharacters(name.substr(point + 1), longestType));
  });
}

std::string basField(std::string_view text, std::string_view delimiter, Int16 number) {
  return procedure("basField", [&] {
    std::string result;
    Int16 field = 1;
    // A delimiter of several characters is stepped over by one, so its rest counts as text.
    for (std::size_t at = 0; at < text.size() && field <= number; ++at) {
      if (text.substr(at, delimiter.size()) == delimiter)
        ++field;
      else if (field == number)
        result += text[at];
    }
    return result;
  });
}

}  // namespace quernstoke
