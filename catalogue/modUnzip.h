#pragma once

#include <string>
#include <string_view>

#include "core/integers.h"
#include "core/table.h"
#include "platform/dateTime.h"

namespace quernstoke {

// One entry of the archive that was listed last.
struct ZipEntry {
  std::string name;  // With forward slashes.
  Int32 size;        // Uncompressed, in bytes.
  DateTime date;     // To the minute.
};

constexpr int roomOfListing = 128;  // Upper bound of ZipEntryList to begin with.

// The entries of the archive that was listed last, rows 1 to ZipEntryCount.
extern Table<ZipEntry> ZipEntryList;
extern Int32 ZipEntryCount;

// All that the archive library said since the last call.
extern std::string ZipMessages;

// Keeps the question for a password from coming up. Each extraction sets it.
extern bool ZipPasswordOff;

// Lists a zip file's entries into the catalogue, below the file's row of DirTable. While no scan
// is running nothing is added: the name and size of the first entry are returned, if it has a size.
std::string basScanThisZip(std::string_view path, Int32 row);

// Adds an entry to the catalogue, and its folder if that has no row below this zip file yet.
void basAddZipEntryToDatabase(std::string_view name, Int32 size, DateTime date, Int32 zipRow);

// Lists an archive into ZipEntryList. Returns the library's code as text, "0" for success.
std::string basZipTOC(std::string_view path);

// Extracts one entry, without its folders, into TempDir. Returns the library's code, 0 for success;
// the entry's name is given back as the library took it.
Int16 basZipExtract(std::string_view path, std::string& entry);

}  // namespace quernstoke
