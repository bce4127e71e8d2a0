#pragma once

#include <functional>
#include <string>

#include "core/integers.h"
#include "platform/fileSystem.h"

namespace quernstoke {

// Types of a record: "N" number, "S" text, "B" boolean.

// Writes one record at the file's position. An empty number is written, and given back, as "0".
void basConfigWrite(FileNumber file, const std::string& key, Int16 index, std::string& value,
                    const std::string& type);

// Reads the next record. Returns whether the end of the file was passed before a record was
// complete: then nothing was read, and what stood there is lost.
bool basConfigRead(FileNumber file, std::string& key, Int16& index, std::string& value,
                   std::string& type);

// One record as read.
struct ConfigRecord {
  std::string key;
  Int16 index;
  std::string value;
  std::string type;

  friend bool operator==(const ConfigRecord&, const ConfigRecord&) = default;
};

// Hands each record of a file to `take` until that returns false. It may fail: the file then stays
// open. The file is opened for reading alone, so that settings that may not be written can still be
// used. A file that isn't there fails.
void readRecords(const std::string& path, const std::function<bool(const ConfigRecord&)>& take);

}  // namespace quernstoke
