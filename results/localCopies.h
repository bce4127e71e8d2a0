#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"

namespace quernstoke {

// The copies in TempDir of files in archives, which rows of the catalogue name in FileLocalName.

// Deletes the copy that a row names, and forgets it. One that can't be deleted is remembered. One
// that has gone is forgotten: what gets its name later may be a person's own.
void deleteLocalCopy(Int32 file);

// The same for all rows that name a copy of this path, letter case apart.
void deleteLocalCopiesAt(std::string_view path);

// All copies that are named.
std::vector<std::string> localCopies();

// Deletes those of the copies that no row names any more.
void deleteLostCopies(const std::vector<std::string>& copies);

}  // namespace quernstoke
