#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/integers.h"

namespace quernstoke {

class DriveTable;

// Tells the files of the catalogue by this machine's own names.
class MachinePaths {
 public:
  explicit MachinePaths(const DriveTable& drives) : drives_(drives) {}

  // An entry of an archive has the archive's path, " >> " and the way to it there.
  std::string path(Int32 file);
  std::string name(Int32 file) const;
  std::string directory(Int32 file);

 private:
  const std::string& directoryOfRow(Int32 row);
  std::string found(std::string_view programPath) const;

  const DriveTable& drives_;
  std::unordered_map<std::int32_t, std::string> directories_;  // By row of DirTable.
};

}  // namespace quernstoke
