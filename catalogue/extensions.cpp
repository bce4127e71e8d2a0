#include "catalogue/extensions.h"

#include "core/helpers.h"
#include "core/procedure.h"
#include "core/text.h"
#include "platform/utf8.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

constexpr std::size_t longestExtension = 999;

// "*.mp3", ".mp3" and "mp3" all mean the extension mp3.
std::string withoutPattern(std::string extension) {
  for (const char prefix : {'*', '.'})
    if (extension.starts_with(prefix))
      extension = firstCharacters(std::string_view(extension).substr(1), longestExtension);
  return extension;
}

Table<std::string> emptyExtensionList() {
  Table<std::string> list;
  list.redim(lastExtensionSlot, false);
  return list;
}

}  // namespace

Table<std::string> ExtensionList = emptyExtensionList();

void basBuildExtensionList(std::string_view types, Table<std::string>& list) {
  procedure("basBuildExtensionList", [&] {
    std::string extensions(types);
    if (isNumeric(types)) extensions = FileTypeTable.FileTypesList[toNumber(types)];
    list.redim(lastExtensionSlot, false);
    for (Int16 slot = 1;; ++slot) {
      const std::string extension = withoutPattern(basField(extensions, ";", slot));
      if (extension.empty()) return;
      list[slot] = upper(extension);
    }
  });
}

bool basValidateExtension(std::string_view extension) {
  return procedure("basValidateExtension", [&] {
    const std::string wanted = upper(extension);
    for (Int16 slot = 1; slot <= lastExtensionSlot; ++slot) {
      const std::string& known = ExtensionList[slot];
      if (known.empty()) return false;
      if (known == "*" || known == wanted) return true;
    }
    return false;
  });
}

}  // namespace quernstoke
