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

// Deletes one file from disk and says so in its row of the catalogue. Only a regular file under the
// very names that the scan came upon is touched: what is reached by a link below the directory that
// the person has named counts as not there. A file of another size or date than the scan found is
// refused, and so is one that another row of its match leads to as well, for it would be the only
// copy.
void basDeleteFileFromGrid(Int32 file, bool& deleted);

// Open the selected file, and the directory that holds it or its archive. Exactly one file must be
// selected.
void basOpenFile(ResultsControls& form);
void basOpenDir(ResultsControls& form);

}  // namespace quernstoke
