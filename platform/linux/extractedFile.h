#pragma once

#include <span>
#include <string>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// A new file in a directory, under a name of its own until it is whole, so that nothing
// half-written is ever found under the name that it is meant for. What is left of it when the
// program is killed goes with the temp files, whose names begin alike, when the next scan starts.
// The directory has to outlive it.
class ExtractedFile {
 public:
  explicit ExtractedFile(const Descriptor& directory);
  ~ExtractedFile();
  ExtractedFile(const ExtractedFile&) = delete;
  ExtractedFile& operator=(const ExtractedFile&) = delete;

  bool isOpen() const { return file_.isOpen(); }

  // Both tell whether it could be done.
  bool write(std::span<const char> bytes);
  // Closes the file and gives it its name, in the place of another file. Links and the like stay.
  bool keepAs(const std::string& name);

 private:
  int directory_;
  std::string workingName_;
  Descriptor file_;
  bool isOurs_ = false;
};

}  // namespace quernstoke
