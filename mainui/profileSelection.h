#pragma once

namespace quernstoke {

// Loads the profile that ProfileName names, with what its last scan left of files and directories,
// and shows it in the main window. `ok` is false if that did not come to its end; with no such
// profile nothing has changed then.
void basProcessProfileSelection(bool& ok);

}  // namespace quernstoke
