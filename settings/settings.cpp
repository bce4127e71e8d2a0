#include "settings/settings.h"

#include "core/text.h"

namespace quernstoke {

ProfileSettingsRecord ProfileSettings;
GlobalSettingsRecord GlobalSettings;
Table<DirSpec> ProfileDirList;
FileTypeTableRecord FileTypeTable;
ProfileListRecord ProfileList;

ProfileListRecord::ProfileListRecord() {
  ProfileNameList.redim(lastProfileSlot, false);
  ProfileDateList.redim(lastProfileSlot, false);
}

bool appliesTo(const DirSpec& spec, std::string_view directory) {
  return spec.RecurseSubDirs ? startsWithIgnoringCase(directory, spec.Dir)
                             : equalIgnoringCase(directory, spec.Dir);
}

void allocateProfileDirList() {
  ProfileDirList.redim(lastDirSlot, false);
}

Int32 firstFreeDirSlot() {
  constexpr int growth = 65;
  Int32 slot = 1;
  while (slot <= ProfileDirList.upperBound() && !ProfileDirList[slot].Dir.empty())
    ++slot;
  if (slot > ProfileDirList.upperBound()) ProfileDirList.redim(slot + growth, true);
  return slot;
}

void allocateFileTypeTable() {
  FileTypeTable.FileTypeDescription.redim(lastFileTypeRow, false);
  FileTypeTable.FileTypesList.redim(lastFileTypeRow, false);
}

}  // namespace quernstoke
