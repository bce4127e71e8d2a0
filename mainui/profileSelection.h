#pragma once

namespace quernstoke {

// Loads the profile that ProfileName names, with what its last scan left of files and directories,
// and shows it in the main window. `ok` is false, and nothing changed, if there is no such profile.
void basProcessProfileSelection(bool& ok);

}  // namespace quernstoke
