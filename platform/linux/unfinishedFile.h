#pragma once

#include <string>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// A new file of a directory that has no name there until it is complete. What is never published
// leaves nothing behind. REQUIRES: the directory stays open as long as the file does.
class UnfinishedFile {
 public:
  // Without any name where the file system can, so that nothing is left even after a power failure.
  static UnfinishedFile in(int directory);
  // Under a name of its own, hidden and not in use.
  static UnfinishedFile namedIn(int directory);

  UnfinishedFile(UnfinishedFile&& other) noexcept;
  UnfinishedFile& operator=(UnfinishedFile&&) = delete;
  ~UnfinishedFile();

  // The file, readable and writable by its owner alone, or the error as a negative number.
  int descriptor() const { return error_ < 0 ? error_ : file_.get(); }

  // Whether it already has a name of its own.
  bool isNamed() const { return !ownName_.empty(); }

  // Gives the file its name, unless there is something of that name. Returns 0 or the error as a
  // negative number.
  int publish(const std::string& name);

 private:
  UnfinishedFile(int directory, std::string ownName, int outcome);

  int directory_;
  std::string ownName_;  // Empty for a file without a name.
  int error_ = 0;
  Descriptor file_;
};

}  // namespace quernstoke
