#include "settings/settings.h"

namespace quernstoke {

namespace {

ProfileListRecord emptyProfileList() {
  ProfileListRecord list;
  list.ProfileNameList.redim(lastProfileSlot, false);
  list.ProfileDateList.redim(lastProfileSlot, false);
  return list;
}

}  // namespace

ProfileSettingsRecord ProfileSettings;
GlobalSettingsRecord GlobalSettings;
Table<DirSpec> ProfileDirList;
FileTypeTableRecord FileTypeTable;
ProfileListRecord ProfileList = emptyProfileList();

void allocateProfileDirList() {
  ProfileDirList.redim(lastDirSlot, false);
}

void allocateFileTypeTable() {
  FileTypeTable.FileTypeDescription.redim(lastFileTypeRow, false);
  FileTypeTable.FileTypesList.redim(lastFileTypeRow, false);
}

}  // namespace quernstoke
