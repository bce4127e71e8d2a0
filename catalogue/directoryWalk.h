#pragma once

#include <string>

#include "core/integers.h"

namespace quernstoke {

// Takes the limits of size and the attributes of a walk from the profile.
void prepareWalk();

// Fills FileTable and DirTable from the directories that the profile includes.
void basBuildDirectoryList();

// Walks one directory and then all below it. `row` is the directory's row of DirTable, or -1 for a
// starting directory, which then gets one; it is overwritten.
void basScanThisDirectory(const std::string& path, Int32& row);

}  // namespace quernstoke
