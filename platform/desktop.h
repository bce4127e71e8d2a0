#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quernstoke {

// Free and total space of a drive, in the units that the system keeps it in.
struct DiskSpace {
  std::int64_t sectorsPerCluster = 0;
  std::int64_t bytesPerSector = 0;
  std::int64_t freeClusters = 0;
  std::int64_t totalClusters = 0;
};

enum class ShowMode : std::int32_t { hidden = 0, normal = 1, byDefault = 10 };

// What the shell is asked to do with a file, directory or address.
struct ShellRequest {
  std::string_view operation;
  std::string_view file;
  std::string_view parameters;
  std::string_view directory;
  ShowMode showMode = ShowMode::normal;
  std::intptr_t window = 0;  // The window that asks, or 0.
};

// Answers of shellExecute; a value below 0 or above 32 is success.
enum ShellAnswer : std::int32_t {
  shellFileNotFound = 2,
  shellPathNotFound = 3,
  shellAccessDenied = 5,
  shellOutOfMemory = 8,
  shellNoAssociation = 31,
  shellSuccess = 33,
};

// The person's desktop around the program.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Opens a file with its associated program, and returns a ShellAnswer.
  virtual std::int32_t shellExecute(const ShellRequest& request) = 0;
  // The directory with this id; id 5 is the person's documents. Nothing when there is none.
  virtual std::optional<std::string> specialFolder(std::int32_t id) = 0;
  // Nothing when the drive can't be asked.
  virtual std::optional<DiskSpace> diskSpace(std::string_view rootPath) = 0;
  // The drives there are, the current one first: letter, colon, and what tells the person which one
  // it is.
  virtual std::vector<std::string> drives() = 0;
};

}  // namespace quernstoke
