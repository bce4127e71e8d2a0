#include "settings/settings.h"

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

void allocateProfileDirList() {
  ProfileDirList.redim(lastDirSlot, false);
}

void allocateFileTypeTable() {
  FileTypeTable.FileTypeDescription.redim(lastFileTypeRow, false);
  FileTypeTable.FileTypesList.redim(lastFileTypeRow, false);
}

}  // namespace quernstoke
