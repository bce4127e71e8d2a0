#pragma once

#include "core/integers.h"

namespace quernstoke {

class ListControl;

// Fills a list with the first ten rows of FileTypeTable that have a description; each item
// carries its row as its data.
void basBuildFileTypesList(ListControl& list);

// The position of the last item that carries `row`, or 0 if none does.
Int16 basGetSetFileTypePos(const ListControl& list, Int16 row);

}  // namespace quernstoke
