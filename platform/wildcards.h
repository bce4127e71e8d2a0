#pragma once

#include <string_view>

namespace quernstoke {

// Whether a file name holds a "*" or "?".
bool hasWildcards(std::string_view name);

// Whether a name fits a pattern as DOS meant it: "*" stands for any text, "?" for one character
// or none at the end, and "*.*" for every name, with a point or without. Both texts are to be in
// one letter case already.
bool matchesWildcards(std::string_view name, std::string_view pattern);

}  // namespace quernstoke
