#pragma once

#include <string>

namespace quernstoke {

// Where the program lies, as a path without a final backslash, and what its executable is called.
// The executable sets both before Main.
extern std::string AppPath;
extern std::string ExeName;

extern std::string ProfilesDir;
// Where local copies and extracted zip entries go. No final backslash.
extern std::string TempDir;
// The current profile; empty while none is selected.
extern std::string ProfileName;
// What stands behind the executable on the command line, as it is. The executable sets it.
extern std::string ProcessCommandLine;
// The same; the load of the main window sets it.
extern std::string CommandLineProfile;

// The program's entry: opens the log, makes the program's directories, allocates the tables, loads
// the global settings and shows the main window. From then on the program runs on its events.
void Main();

}  // namespace quernstoke
