#include "core/version.h"

namespace quernstoke {

const Version programVersion = {QUERNSTOKE_VERSION_MAJOR, QUERNSTOKE_VERSION_MINOR,
                                QUERNSTOKE_VERSION_PATCH};

std::string mainCaption(const Version& version) {
  std::string caption =
      "Quernstoke " + std::to_string(version.major) + "." + std::to_string(version.minor);
  if (version.revision != 0) caption += "." + std::to_string(version.revision);
  return caption + " - Find Duplicate Files";
}

}  // namespace quernstoke
