#pragma once

namespace quernstoke {

class MachinePaths;
class Output;

// Writes the sets of MatchGroupTable, a path of this machine a line and a blank line between two
// sets.
void writeTextReport(MachinePaths& paths, Output& output);

}  // namespace quernstoke
