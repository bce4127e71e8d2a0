#pragma once

#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// The stored help text with this number; empty if there is none. The word NEWLINE in a text stands
// for a line break.
std::string_view helpString(Int16 id);

// The text as it is shown, with its line breaks.
std::string helpText(Int16 id);

// A stored text with CR and LF in place of each NEWLINE, in any letter case.
std::string withLineBreaks(std::string_view stored);

}  // namespace quernstoke
