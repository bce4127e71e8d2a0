#pragma once

#include "core/integers.h"
#include "mainui/modalForms.h"

namespace quernstoke {

class ResultsControls;

// The rows of DirTable that the window of two directories compares, while it is open.
inline Int32& DirMatchDir1 = DialogValue;
inline Int32& DirMatchDir2 = DialogValue2;

// Index 0 and 1 pick the two directories, each along the path of the selected file. Index 2 walks
// both, opens the window that compares them, and takes out again what the walk has added.
// REQUIRES: nothing fills the grid or sorts the catalogue meanwhile.
void cmdSetDir_Click(ResultsControls& form, Int16 index);

}  // namespace quernstoke
