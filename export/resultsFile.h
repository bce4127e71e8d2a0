#pragma once

#include <string_view>

namespace quernstoke {

struct ResultsLayout;

// Writes the results, as MatchGroupTable and ResultsGroup have them, to a file, which replaces an
// earlier one. An html page is made from the template beside the program, which is not to be
// replaced. Returns true if the file is complete; otherwise a message has told why, and what was
// written so far stays.
bool basWriteResultsFile(std::string_view directory, std::string_view fileName,
                         const ResultsLayout& layout);

}  // namespace quernstoke
