#pragma once

#include <string>

namespace quernstoke {

std::string helpText();
std::string versionText();

}  // namespace quernstoke
