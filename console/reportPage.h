#pragma once

#include <optional>
#include <string>

namespace quernstoke {

struct PageTemplate;

// The template of an html report: that in the home directory, which is the one given or else the
// one that QUERNSTOKE_HOME names; without one there, that beside the executable; without either the
// program's own. Throws the ScanError for one that can't be used.
PageTemplate reportPage(const std::optional<std::string>& home);

// What packaging/results_template.html holds.
extern const char* const builtInPage;

}  // namespace quernstoke
