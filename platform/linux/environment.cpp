#include "platform/linux/environment.h"

#include <cstdlib>

namespace quernstoke {

std::optional<std::string> environmentVariable(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

}  // namespace quernstoke
