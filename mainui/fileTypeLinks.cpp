#include "mainui/fileTypeLinks.h"

#include "core/modMain.h"
#include "core/text.h"
#include "settings/configRecord.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

// This looks at the kind of a directory, not at its file types: what it finds are the halves "1"
// and "2" of pairs, and only rows 1 and 2 are ever linked.
bool isLinked(const std::string& profile, Int32 fileType) {
  bool linked = false;
  readRecords(ProfilesDir + "\\" + profile + ".profile", [&](const ConfigRecord& record) {
    linked = record.key == "IncludeExclude" && isNumeric(record.value) &&
             wholePart(record.value) == fileType.raw();
    return !linked;
  });
  return linked;
}

}  // namespace

std::optional<std::string> profileLinkedTo(Int32 fileType) {
  for (Int16 slot = 1; slot <= lastProfileSlot; ++slot) {
    const std::string& profile = ProfileList.ProfileNameList[slot];
    if (isLinked(profile, fileType)) return profile;
  }
  return std::nullopt;
}

}  // namespace quernstoke
