#pragma once

#include <string>

namespace quernstoke {

class DriveTable;

// What this process was started as, and where.

// The directory that a path leads to: absolute, and without links. Throws a std::runtime_error that
// names the path for one that isn't there or is no directory.
std::string realDirectory(const std::string& path);

std::string executableDirectory();

// Where the program's files lie: what QUERNSTOKE_HOME names, or the directory of the executable.
std::string namedHome();

// The same as the program's path, which has no final backslash.
std::string homeAsProgramPath(const std::string& home, const DriveTable& drives);

// What the file of the executable is called.
std::string executableName();

// The arguments as one text, a blank between each two.
std::string commandLine(int argc, const char* const* argv);

}  // namespace quernstoke
