#pragma once

#include <string>
#include <string_view>

#include "core/table.h"

namespace quernstoke {

// The extensions that the include in progress looks at, upper-cased, from slot 1 to the first
// empty one; "*" stands for any.
extern Table<std::string> ExtensionList;

constexpr int lastExtensionSlot = 32;

// Fills a list from what a directory of a profile says: the number of a row of FileTypeTable, or
// extensions divided by ";". More than 32 are reported as a procedure error; the first 32 are kept.
void basBuildExtensionList(std::string_view types, Table<std::string>& list);

// Whether ExtensionList takes files of this extension.
bool basValidateExtension(std::string_view extension);

}  // namespace quernstoke
