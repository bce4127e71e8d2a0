#pragma once

#include <string>

namespace quernstoke {

struct Version {
  int major;
  int minor;
  int revision;
};

// That of the build.
extern const Version programVersion;

// What the main window is called: the product, its version, with the revision only if there is
// one, and what it does.
std::string mainCaption(const Version& version);

}  // namespace quernstoke
