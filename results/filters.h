#pragma once

#include "core/integers.h"

namespace quernstoke {

class ResultsControls;

// Filters take files out of the results without touching the disk. They have no undo; a new scan
// brings the files back.

// Pops up the menu of filters, beside its button. Its first item names the directory of the
// selected file.
void cmdFilter_Click(ResultsControls& form);

void mnuFilter_Click(ResultsControls& form, Int16 index);

// Takes all files out of a directory that the person chooses along the path of the selected file,
// with a permanent exclusion also in later scans. Exactly one file must be selected.
void basFilterDirectory(ResultsControls& form);

// Drops the files that a filter has marked, with them the groups that are down to one file, and
// builds the display anew.
void basFilterRefresh(ResultsControls& form);

// Index 0 and 1 pick the directories of a pair that later scans don't compare with each other; the
// profile is saved once both are picked. Index 2 forgets what was picked.
void mnuFilterTwoDirs_Click(ResultsControls& form, Int16 index);

// Takes out the files and directories that were added while no scan was running.
void basRemoveTemporaryEntries();

}  // namespace quernstoke
