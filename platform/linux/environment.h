#pragma once

#include <optional>
#include <string>

namespace quernstoke {

// Nothing for a variable that is set to nothing.
std::optional<std::string> environmentVariable(const char* name);

}  // namespace quernstoke
