#pragma once

#include <string>

#include "core/integers.h"
#include "platform/fileSystem.h"

namespace quernstoke {

// Whether blocks of files on slow media are kept in local copies.
extern bool LocalCopyActive;
// What may lie in TempDir, and what this program has put there since it started less what it took
// out again, in units of 1024 bytes.
extern Int32 TempSpaceBudgetKB;
extern Int32 TempUsedKB;
// The number in the next temp name.
extern Int32 TempFileCounter;

// Opens a temp file for reading and writing at its beginning: the one named, or with an empty name
// a new one, whose name is given back. Returns 0 after a failure.
FileNumber basOpenTempFile(std::string& name);

// Extracts a zip entry into TempDir, under a temp name unless `keepName`. Returns the full path, or
// empty text if there is no such file afterwards.
std::string basExtractZipEntry(const std::string& zipPath, const std::string& innerDir,
                               const std::string& fileName, bool keepName);

// Deletes a temp file and then the directories between it and TempDir that are empty. A path that
// does not begin with TempDir, letter case counting, is left alone.
void basDeleteTempFile(const std::string& path);

}  // namespace quernstoke
