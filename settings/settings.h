#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// The settings of the current profile.
struct ProfileSettingsRecord {
  std::string Desc;
  std::string MatchingCriteria;  // Any of the letters N, C and S.
  bool ProcessZip = false;
  bool ScanHiddenFiles = false;
  bool ScanSystemFiles = false;
  bool SlowNetwork = false;
  Int32 MinimumSize;
  std::string MinimumSizeMeasure;  // "B", "KB", "MB" or "GB".
  Int32 MaximumSize;
  std::string MaximumSizeMeasure;
  Int16 ContentMatchingPercent;
  Int16 RunMode;  // The RunState in which the last scan ended; 0 for a profile never scanned.
  Int32 RestartPointMatchGroup;
  Int32 RestartPointPrimaryFile;
  Int32 RestartPointSecondaryFile;
  Int32 RestartPointNumDuplicates;
  Int16 RestartPoint;
  Int32 ElapsedTime;  // Seconds.
  Int16 MatchNum;
  Int32 NumDuplicates;
};

// The settings of the whole installation.
struct GlobalSettingsRecord {
  Int32 NumberOfFileBuffers;
  Int32 FileBufferSize;  // Bytes.
  Int32 TransferMaxDiskSpace;
  std::string TransferMaxDiskSpaceMeasure;
  bool TransferFileLocally = false;
  std::string TempPath;
  bool HelpPanel = false;
  std::string ResultsOutputFormat;  // "HTML" or "CSV".
  std::string ResultsOutputDirectory;
  std::string ResultsOutputFile;
  bool ResultsNumberEachBlock = false;
  bool ResultsBlockMarkers = false;
  std::array<std::string, 3> ResultsBlockIndicator;  // The first and second of two; 0 is unused.
  bool ResultsLaunch = false;
};

// One directory of a profile.
struct DirSpec {
  std::string Dir;                // Empty for a free slot.
  std::string IncludeExclude;     // "I" include, "E" exclude, "1" and "2" the halves of a pair.
  std::string IncludeExtensions;  // A row of FileTypeTable, or a list of extensions.
  bool RecurseSubDirs = false;
};

// Whether a slot is about a directory, letter case apart: about its own, or with its subdirectories
// about each that begins like it. That is a plain prefix: C:\foo also covers C:\foobar.
bool appliesTo(const DirSpec& spec, std::string_view directory);

// File types by row, 1 to 50.
struct FileTypeTableRecord {
  Table<std::string> FileTypeDescription;
  Table<std::string> FileTypesList;
};

// The profiles there are, in slots 1 to 32, each with the date of its last scan as text.
struct ProfileListRecord {
  ProfileListRecord();

  Table<std::string> ProfileNameList;
  Table<std::string> ProfileDateList;
};

constexpr int lastDirSlot = 128;
constexpr int lastFileTypeRow = 50;
constexpr int lastProfileSlot = 32;

extern ProfileSettingsRecord ProfileSettings;
extern GlobalSettingsRecord GlobalSettings;
extern Table<DirSpec> ProfileDirList;
extern FileTypeTableRecord FileTypeTable;
extern ProfileListRecord ProfileList;

// Empties all slots of ProfileDirList.
void allocateProfileDirList();
// The first free slot of ProfileDirList from 1 upward, for which the list may grow.
Int32 firstFreeDirSlot();
// Empties all rows of FileTypeTable.
void allocateFileTypeTable();

}  // namespace quernstoke
