#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "console/options.h"

namespace quernstoke {

// Ends in the ScanError of wrong arguments.
[[noreturn]] void refuse(const std::string& line);

// Take the text behind an option into what a scan needs. Each throws a ScanError for a text that
// means nothing.

std::string matchLetters(std::string_view text);
std::int16_t matchPercent(std::string_view text);
SizeLimit sizeLimit(std::string_view text);
std::int64_t bytesOf(const SizeLimit& limit);
// Always with "*." before each extension: the engine takes a bare number for a row of its table.
std::string typeList(std::string_view text);
// A name that stays below the directory of the profiles.
std::string profileName(std::string_view text);
ReportFormat reportFormat(std::string_view text);

}  // namespace quernstoke
