#pragma once

#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// All that the archive library said since the last call.
extern std::string ZipMessages;

// Lists the entries of a zip file into the catalogue, below the file's row of DirTable.
std::string basScanThisZip(std::string_view path, Int32 row);

// Extracts one entry, without its folders, into TempDir. Returns 0 on success.
Int16 basZipExtract(std::string_view path, std::string& entry);

}  // namespace quernstoke
