#pragma once

#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// Splits a path at its last "/" or "\". Without a separator the directory is empty.
void basGetFilePath(std::string_view path, std::string& name, std::string& directory);

// The upper-cased text behind the last "." of a bare file name; empty without one.
std::string basGetFileType(std::string_view name);

// Field `number`, from 1, of a text whose fields a delimiter divides. Beyond the last: empty.
std::string basField(std::string_view text, std::string_view delimiter, Int16 number);

}  // namespace quernstoke
