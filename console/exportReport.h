#pragma once

namespace quernstoke {

class MachinePaths;
class Output;
struct PageTemplate;

// Writes the sets of MatchGroupTable as the windows export results, with the block markers and
// numbers of GlobalSettings, but with this machine's own names. As these can hold any character,
// those that would break the format are escaped.
void writeCsvReport(MachinePaths& paths, Output& output);
void writeHtmlReport(const PageTemplate& page, MachinePaths& paths, Output& output);

}  // namespace quernstoke
