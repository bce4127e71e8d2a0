#pragma once

#include <stdexcept>
#include <string>

namespace quernstoke {

// What the program says to whoever started it. --help tells these numbers too.
enum class ExitStatus : int {
  finished = 0,
  failed = 1,  // What was found or written is incomplete.
  wrongArguments = 2,
  notThere = 3,  // A directory or a profile.
  stopped = 4,   // Paused or aborted.
};

// Ends the run with a status; what() is one line for the person.
struct ScanError : std::runtime_error {
  ScanError(ExitStatus why, const std::string& line) : std::runtime_error(line), status(why) {}

  ExitStatus status;
};

}  // namespace quernstoke
