#include "settings/fileTypesList.h"

#include "core/procedure.h"
#include "platform/controls.h"
#include "settings/settings.h"

namespace quernstoke {

void basBuildFileTypesList(ListControl& list) {
  procedure("basBuildFileTypesList", [&] {
    constexpr int lastListedRow = 10;
    list.clear();
    for (Int16 row = 1; row <= lastListedRow; ++row) {
      const std::string& description = FileTypeTable.FileTypeDescription[row];
      if (!description.empty()) list.add(description, row.raw());
    }
  });
}

Int16 basGetSetFileTypePos(const ListControl& list, Int16 row) {
  return procedure("basGetSetFileTypePos", [&] {
    Int16 found = 0;
    for (Int16 position = 0; position < list.count(); ++position)
      if (list.data(position.raw()) == row) found = position;
    return found;
  });
}

}  // namespace quernstoke
