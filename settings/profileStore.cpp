#include "settings/profileStore.h"

#include <algorithm>
#include <array>

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "core/text.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "settings/configRecord.h"
#include "settings/settingKeys.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

constexpr std::string_view firstProfile = "MyDocs";

std::string profilePath() {
  return ProfilesDir + "\\" + ProfileName + ".profile";
}
std::string globalPath() {
  return ProfilesDir + "\\global.settings";
}

// The number that a record of the type "N" says; a value that is none is told and counts as 0.
Int32 numberOf(const ConfigRecord& record) {
  if (isNumeric(record.value)) return toNumber(record.value);
  dialogs().messageBox("Config setting " + record.key + " is not numeric, zero used");
  return 0;
}

const Setting* findSetting(std::span<const Setting> settings, const ConfigRecord& record) {
  const auto found = std::find_if(settings.begin(), settings.end(), [&](const Setting& setting) {
    return setting.key == record.key;
  });
  return found == settings.end() ? nullptr : &*found;
}

// Takes a record that belongs to a slot of ProfileDirList; false if it is of another kind.
bool takeDirSpec(const ConfigRecord& record) {
  if (record.key == "Dir")
    ProfileDirList[record.index].Dir = record.value;
  else if (record.key == "IncludeExclude")
    ProfileDirList[record.index].IncludeExclude = record.value;
  else if (record.key == "IncludeExtensions")
    ProfileDirList[record.index].IncludeExtensions = record.value;
  else if (record.key == "RecurseSubDirs")
    ProfileDirList[record.index].RecurseSubDirs = toBoolean(record.value);
  else
    return false;
  return true;
}

void loadProfileFile() {
  allocateProfileDirList();
  Int32 number;  // A numeric key in a record of another type takes the last number before it.
  readRecords(profilePath(), [&](const ConfigRecord& record) {
    if (record.type == "N") number = numberOf(record);
    if (record.key.empty()) return true;
    if (const Setting* setting = findSetting(profileSettingKeys(), record))
      assign(setting->field, record.value, number);
    else if (!takeDirSpec(record))
      dialogs().messageBox("Invalid config setting " + record.key + " data ignored");
    return true;
  });
}

// Settings that files of earlier versions may lack.
void presetGlobalSettings() {
  GlobalSettings.ResultsLaunch = true;
  GlobalSettings.ResultsNumberEachBlock = true;
  GlobalSettings.ResultsBlockMarkers = true;
  GlobalSettings.ResultsOutputFormat = "HTML";
  GlobalSettings.ResultsBlockIndicator[1] = "";
  GlobalSettings.ResultsBlockIndicator[2] = "#";
  GlobalSettings.ResultsOutputDirectory = AppPath;
  GlobalSettings.ResultsOutputFile = "results.html";
}

void makeFirstSettings() {
  basDefaultProfile("GLOBAL", "");
  ProfileName = firstProfile;
  basSaveProfile("NEWPROFILE");
  basSaveProfile("GLOBAL");
  basDefaultProfile("PROFILE", "");
  ProfileName.clear();
  if (!basDirExists(GlobalSettings.TempPath)) files().makeDirectory(GlobalSettings.TempPath);
}

std::string& blockIndicator(Int16 index) {
  auto& indicators = GlobalSettings.ResultsBlockIndicator;
  if (index < 0 || index >= Int16(indicators.size())) fail(FailureNumber::subscriptOutOfRange);
  return indicators[static_cast<std::size_t>(index.raw())];
}

// The list entry that a record with an index belongs to, or null.
std::string* findListEntry(const ConfigRecord& record) {
  if (record.key == "ResultsBlockIndicator") return &blockIndicator(record.index);
  if (record.key == "FileTypeDescription") return &FileTypeTable.FileTypeDescription[record.index];
  if (record.key == "FileTypesList") return &FileTypeTable.FileTypesList[record.index];
  if (record.key == "ProfileNameList") return &ProfileList.ProfileNameList[record.index];
  if (record.key == "ProfileDateList") return &ProfileList.ProfileDateList[record.index];
  return nullptr;
}

void loadGlobalFile() {
  readRecords(globalPath(), [](const ConfigRecord& record) {
    const Int32 number = record.type == "N" ? numberOf(record) : Int32(0);
    if (std::string* entry = findListEntry(record))
      *entry = record.value;
    else if (const Setting* setting = findSetting(globalSettingKeys(), record))
      assign(setting->field, record.value, number);
    return true;
  });
}

void writeRecord(FileNumber file, std::string_view key, Int16 index, std::string value,
                 const std::string& type) {
  basConfigWrite(file, std::string(key), index, value, type);
}

void writeSettings(FileNumber file, std::span<const Setting> settings) {
  for (const Setting& setting : settings)
    writeRecord(file, setting.key, setting.index, textOf(setting.field), typeOf(setting.field));
}

// A new file in the place of the old one, which is gone before the new one is written.
FileNumber openAnew(const std::string& path) {
  if (basFileExists(path)) files().remove(path);
  return files().open(path, OpenMode::binary);
}

void saveProfileFile() {
  const FileNumber file = openAnew(profilePath());
  writeSettings(file, profileSettingKeys());
  for (Int16 slot = 1; slot <= lastDirSlot; ++slot) {
    const DirSpec& spec = ProfileDirList[slot];
    if (spec.Dir.empty()) continue;
    writeRecord(file, "Dir", slot, spec.Dir, "S");
    writeRecord(file, "IncludeExclude", slot, spec.IncludeExclude, "S");
    writeRecord(file, "IncludeExtensions", slot, spec.IncludeExtensions, "S");
    writeRecord(file, "RecurseSubDirs", slot, toText(spec.RecurseSubDirs), "B");
  }
  files().close(file);
}

void saveGlobalFile() {
  const FileNumber file = openAnew(globalPath());
  writeSettings(file, globalSettingKeys());
  for (Int16 row = 1; row <= lastFileTypeRow; ++row) {
    if (FileTypeTable.FileTypesList[row].empty()) continue;
    writeRecord(file, "FileTypeDescription", row, FileTypeTable.FileTypeDescription[row], "S");
    writeRecord(file, "FileTypesList", row, FileTypeTable.FileTypesList[row], "S");
  }
  for (Int16 slot = 1; slot <= lastProfileSlot; ++slot) {
    if (ProfileList.ProfileNameList[slot].empty()) continue;
    writeRecord(file, "ProfileNameList", slot, ProfileList.ProfileNameList[slot], "S");
    writeRecord(file, "ProfileDateList", slot, ProfileList.ProfileDateList[slot], "S");
  }
  files().close(file);
}

// With all slots taken the new profile stays out of the list.
void enterInProfileList() {
  for (Int16 slot = 1; slot <= lastProfileSlot; ++slot) {
    if (!ProfileList.ProfileNameList[slot].empty()) continue;
    ProfileList.ProfileNameList[slot] = ProfileName;
    ProfileList.ProfileDateList[slot].clear();
    return;
  }
}

void defaultGlobalSettings() {
  presetGlobalSettings();
  GlobalSettings.NumberOfFileBuffers = 500;
  GlobalSettings.FileBufferSize = 8192;
  GlobalSettings.TransferMaxDiskSpace = 50;
  GlobalSettings.TransferMaxDiskSpaceMeasure = "MB";
  GlobalSettings.TransferFileLocally = true;
  GlobalSettings.TempPath = AppPath + "\\temp";
  GlobalSettings.ResultsOutputFile = "Results.html";  // One letter tells it from the preset.
}

void defaultFileTypes() {
  constexpr std::array<std::array<const char*, 2>, 5> types = {{
      {"All files", "*.*"},
      {"Music", "*.mp3;*.wma;*.ogg;*.aac"},
      {"Video", "*.avi;*.wmv;*.mpg;*.mpeg;*.mov"},
      {"Documents", "*.pdf;*.doc;*.dot;*.xls;*.xlt;*.ppt;*.pps"},
      {"Images", "*.gif;*.tif;*.tiff;*.pcx;*.jpg;*.jpeg;*.bmp"},
  }};
  Int32 row;
  for (const auto& [description, list] : types) {
    ++row;
    FileTypeTable.FileTypeDescription[row] = description;
    FileTypeTable.FileTypesList[row] = list;
  }
}

void defaultProfileSettings() {
  ProfileSettings.MatchingCriteria = "C";
  ProfileSettings.ContentMatchingPercent = 100;
  ProfileSettings.SlowNetwork = false;
  ProfileSettings.ProcessZip = false;
  ProfileSettings.ScanHiddenFiles = false;
  ProfileSettings.ScanSystemFiles = false;
  ProfileSettings.MinimumSize = 32;
  ProfileSettings.MinimumSizeMeasure = "B";
  ProfileSettings.MaximumSize = 2;
  ProfileSettings.MaximumSizeMeasure = "GB";
  ProfileSettings.RunMode = 0;
  ProfileSettings.MatchNum = -1;
  ProfileSettings.NumDuplicates = -1;
}

void defaultDirectories(std::string_view profileName) {
  constexpr int documentsFolder = 5;
  if (profileName == firstProfile) {
    ProfileSettings.Desc = "My Documents";
    ProfileDirList[1] = {basGetSpecialFolder(documentsFolder), "I", "1", true};
  } else {
    basRedimFilesArrays(0, false);
    allocateProfileDirList();
    ProfileSettings.Desc.clear();
    ProfileDirList[1] = {"", "I", "0", true};
  }
}

}  // namespace

bool basLoadProfile(std::string_view mode) {
  return procedure("basLoadProfile", [&] {
    if (mode == "PROFILE" || mode.empty()) {
      if (!basFileExists(profilePath())) return false;
      loadProfileFile();
    }
    if (mode != "GLOBAL" && !mode.empty()) return true;
    presetGlobalSettings();
    if (!basFileExists(globalPath())) makeFirstSettings();
    loadGlobalFile();
    return true;
  });
}

void basSaveProfile(std::string& mode) {
  procedure("basSaveProfile", [&] {
    if (mode == "NEWPROFILE") {
      basDefaultProfile("PROFILE", ProfileName);
      enterInProfileList();
      mode = "PROFILE";
    }
    if (mode.empty() || (mode == "PROFILE" && !ProfileName.empty())) saveProfileFile();
    if (mode != "GLOBAL" && !mode.empty()) return;
    saveGlobalFile();
  });
}

void basSaveProfile(std::string_view mode) {
  std::string changing(mode);
  basSaveProfile(changing);
}

void basDefaultProfile(std::string_view mode, std::string_view profileName) {
  procedure("basDefaultProfile", [&] {
    if (mode == "GLOBAL") {
      defaultGlobalSettings();
      defaultFileTypes();
    } else if (mode == "PROFILE") {
      defaultDirectories(profileName);
      defaultProfileSettings();
    }
  });
}

}  // namespace quernstoke
