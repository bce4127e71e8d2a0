#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/fixedPoint.h"
#include "core/integers.h"
#include "platform/desktop.h"

namespace quernstoke {

// Free bytes of the drive that basGetDiskSpace was last asked about; 0 if that failed.
extern FixedPoint DiskFreeBytes;

// Opens a file, directory or address with its associated program. Returns "OK", "NOASSOC" when no
// program is associated, or empty text for every other failure. Empty texts stand for none.
std::string basShellOpen(std::string_view file, ShowMode showMode, std::string_view parameters,
                         std::string_view directory, std::string_view operation,
                         std::intptr_t window);

// What the person is told of a file that can't be opened, and of one with which no program is
// associated.
void showUnopenable(const std::string& path);
void showNoApplication();

// The path of a special folder; id 5 is the person's documents. Empty if there is none.
std::string basGetSpecialFolder(Int32 folderId);

// Asks the system for the space of a drive and returns what `key` names: "ROOTPATH", "FREEBYTES",
// "TOTALBYTES", "FREEPCNT", "USEDPCNT"; for any other key whether the call succeeded, as "1" or
// "0". The numbers of a failed call are 0.
std::string basGetDiskSpace(std::string_view rootPath, std::string_view key);

}  // namespace quernstoke
