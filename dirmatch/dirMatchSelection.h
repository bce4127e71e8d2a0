#pragma once

#include "core/integers.h"

namespace quernstoke {

class DirMatchControls;

// Widens the selection to the columns of the side that was clicked and tells about its file. A
// click on a separator tells about the file below it.
void griddir_Click(DirMatchControls& form);

// The same after a key. One that has left the selected columns, of which `colBefore` was the first,
// leads to the other side.
void griddir_KeyUp(DirMatchControls& form, Int32 colBefore);

// Enables the buttons of the side on which there is a file in the current row.
void basUpdateControls(DirMatchControls& form);

}  // namespace quernstoke
