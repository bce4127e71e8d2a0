#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quernstoke {

// One component of a path. Characters that the program's names can't hold (\ : * ? " < > | and the
// control characters 1 to 31) are U+F000 plus their code there. Where the Linux name itself holds
// one of these stand-ins, or U+F000, that character follows an escaping U+F000. So
// linuxName(windowsName(name)) == name for every name, valid UTF-8 or not.
std::string windowsName(std::string_view linuxName);
std::string linuxName(std::string_view windowsName);

// Whether windowsName would change anything; most names it leaves alone.
bool needsWindowsName(std::string_view linuxName);

// The drives that the program sees. C: is the root directory; others are mounted directories.
class DriveTable {
 public:
  DriveTable();

  // Reads "D:=/mnt/data;E:=/media/usb". An entry that isn't a free drive letter and an absolute
  // path is ignored.
  static DriveTable parse(std::string_view drives);
  static DriveTable fromEnvironment();  // From the variable QUERNSTOKE_DRIVES.

  // "C:\a\b" as "/a/b". Without a drive a leading backslash means drive C, and no backslash the
  // current directory. A forward slash separates as well. Fails with path not found for a letter
  // without a drive, and for text that no path can hold.
  std::string linuxPath(std::string_view programPath) const;
  void assignLinuxPath(std::string_view programPath, std::string& into) const;

  // The program's path for an absolute Linux path, on the drive with the longest fitting directory.
  std::string programPath(std::string_view linuxPath) const;

  // The letters in use, in the order of the alphabet.
  std::string letters() const;

 private:
  static constexpr int letterCount = 26;

  // Without a trailing slash, thus empty for the root.
  struct Drive {
    bool present = false;
    std::string directory;
  };

  void add(std::string_view entry);
  const Drive& drive(char letter) const;

  std::array<Drive, letterCount> drives_;
};

}  // namespace quernstoke
