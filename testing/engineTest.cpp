#include "testing/engineTest.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

void EngineTest::start() {
  Main();
}

void EngineTest::makeProfile(const std::string& name) {
  ProfileName = name;
  basSaveProfile("NEWPROFILE");
}

void EngineTest::setDirectory(int slot, const std::string& path, const std::string& includeExclude,
                              bool recurse, const std::string& extensions) {
  ProfileDirList[slot] = {path, includeExclude, extensions, recurse};
}

std::vector<std::string> EngineTest::logLines() const {
  constexpr std::size_t dateLength = sizeof("2004-11-02 16:41:08 - ") - 1;
  std::vector<std::string> lines;
  const std::string log = disk.content(AppPath + "\\" + ExeName + ".log");
  for (std::size_t at = 0; at < log.size();) {
    const std::size_t end = log.find("\r\n", at);
    lines.push_back(log.substr(at + dateLength, end - at - dateLength));
    at = end + 2;
  }
  return lines;
}

std::string procedureError(const std::string& name, const std::string& reason) {
  return "Procedure error in '" + name + "'.  Reason: " + reason + ".";
}

void buildCatalogue(const std::vector<CatalogueFile>& files) {
  FileCount = 0;
  DirCount = 0;
  basRedimFilesArrays(1000, false);
  DirTable.redim(1024, false);
  const Int16 stateBefore = RunState;
  RunState = runState::buildingList;
  for (const CatalogueFile& file : files) {
    bool existed = false;
    const Int32 row = basAddDirToList(file.directory, dirKind::directory, noParent, existed);
    const Int32 number = basAddFileToList(file.name, row, file.size, {});
    FileTable.FileStatus[statusMatch][number] = file.matchNumber;
  }
  RunState = stateBefore;
}

void buildSizes(const std::vector<int>& sizes) {
  std::vector<CatalogueFile> files;
  for (const int size : sizes)
    files.push_back({std::string(1, static_cast<char>('a' + files.size())), "C:\\", size});
  buildCatalogue(files);
}

void buildMatches(const std::vector<int>& numbers) {
  buildSizes(std::vector<int>(numbers.size(), 1));
  for (std::size_t i = 0; i < numbers.size(); ++i)
    FileTable.FileStatus[statusMatch][i + 1] = numbers[i];
}

void groupAll() {
  MatchGroupTable.redim(1, false);
  MatchGroupTable[1] = {1, FileCount};
  MatchGroupCount = 1;
}

std::vector<std::string> fileNames() {
  std::vector<std::string> names;
  for (Int32 file = 1; file <= FileCount; ++file)
    names.emplace_back(FileTable.FileName[file]);
  return names;
}

std::vector<std::string> filePaths() {
  std::vector<std::string> paths;
  for (Int32 file = 1; file <= FileCount; ++file)
    paths.push_back(basGetDirnameFromFilenum(file) + "\\" + std::string(FileTable.FileName[file]));
  return paths;
}

namespace {

std::vector<int> columnValues(const Table<Int32>& column) {
  std::vector<int> values;
  for (Int32 file = 1; file <= FileCount; ++file)
    values.push_back(column[file].raw());
  return values;
}

}  // namespace

std::vector<int> fileSizes() {
  return columnValues(FileTable.FileSize);
}

std::vector<int> matchNumbers() {
  return columnValues(FileTable.FileStatus[statusMatch]);
}

int stateOf(Int32 file) {
  return FileTable.FileStatus[statusState][file].raw();
}

std::vector<std::string> directoryNames() {
  std::vector<std::string> names;
  for (Int32 row = 1; row <= DirCount; ++row)
    names.push_back(DirTable[row].name);
  return names;
}

}  // namespace quernstoke
