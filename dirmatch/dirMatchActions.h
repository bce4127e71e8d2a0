#pragma once

#include "core/integers.h"

namespace quernstoke {

class DirMatchControls;

// The buttons, by the side on which they act. REQUIRES: nothing but these procedures sorts the
// catalogue or fills the grid while a message is shown.

// Asks for each selected file of the side whether it is to be deleted. The grid is filled anew
// after each one, so the next of the selected lines may then show another file than before. One
// that the disk doesn't delete leaves the list without a word; one that deleteWalkedFile refuses is
// told, and stays.
void cmdDelete_Click(DirMatchControls& form, Int32 side);

// Moves the selected files of the side to the directory of the other one, after a question each, or
// one for all those in sub-directories. A file is copied whole before it is deleted where it was,
// and deleted only as it was copied; whatever fails, one whole copy is in one of the two places.
void cmdMove_Click(DirMatchControls& form, Int32 side);

void cmdOpen_Click(DirMatchControls& form, Int32 side);

}  // namespace quernstoke
