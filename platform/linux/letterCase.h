#pragma once

#include <string>
#include <string_view>

namespace quernstoke {

// Letter case by Unicode simple mapping, whatever the person's locale. Bytes that are not valid
// UTF-8 pass unchanged.
std::string lowerCase(std::string_view text);
std::string upperCase(std::string_view text);

// Whether the texts differ in nothing but the case of letters.
bool sameIgnoringCase(std::string_view left, std::string_view right);

}  // namespace quernstoke
