#pragma once

#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class TextRuler;

// A directory and a name as one path, fitted to a width by dropping components from its middle,
// each run of them shown as "...". The width is in the ruler's units. A path of more than 33
// components that has to be fitted is reported as a procedure error and gives empty text.
std::string basBuildFullFilePath(Int32 targetWidth, std::string_view name,
                                 std::string_view directory, const TextRuler& ruler);

}  // namespace quernstoke
