#pragma once

#include <cstdint>

#include "core/integers.h"

namespace quernstoke {

class ResultsControls;

namespace deletionMode {
constexpr std::int16_t selected = 0;
constexpr std::int16_t ticked = 1;
}  // namespace deletionMode

// Deletes the files of the selected rows, without a question, or those of the page that are ticked,
// after a question that counts the ticked ones of all pages.
// REQUIRES: nothing fills the grid or sorts the catalogue while a message is shown.
void basDeleteFile(ResultsControls& form, Int16 mode);

// Deletes one file from disk as deleteWalkedFile does, tells why if that was refused or has failed,
// and marks its row of the catalogue.
void basDeleteFileFromGrid(Int32 file, bool& deleted);

// Open the selected file, and the directory that holds it or its archive. Exactly one file must be
// selected.
void basOpenFile(ResultsControls& form);
void basOpenDir(ResultsControls& form);

}  // namespace quernstoke
