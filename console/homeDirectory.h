#pragma once

#include <optional>
#include <string>

namespace quernstoke {

// The directory that a path leads to: absolute, and without links. Throws the ScanError for one
// that isn't there or is no directory.
std::string existingDirectory(const std::string& path);

// Where the program's files are said to lie: in the directory chosen, or what QUERNSTOKE_HOME
// names, or the directory of the executable.
std::string homeChosen(const std::optional<std::string>& chosen);

// The same, if it is there.
std::string programHome(const std::optional<std::string>& chosen);

// A home for one scan, in the directory chosen, or in TMPDIR or /tmp. It is removed with all that
// is in it.
class ScratchHome {
 public:
  explicit ScratchHome(const std::optional<std::string>& chosen);
  ~ScratchHome();
  ScratchHome(const ScratchHome&) = delete;
  ScratchHome& operator=(const ScratchHome&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace quernstoke
