#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "catalogue/fileTable.h"
#include "testing/standIns.h"

namespace quernstoke {

// The engine over its stand-ins, for one test.
class EngineTest : public testing::Test, protected StandIns {
 protected:
  // Starts the program as its executable would.
  void start();
  // Gives a new profile of this name its defaults, makes it the current one and saves it.
  void makeProfile(const std::string& name);
  // Puts a directory into a slot of the current profile.
  static void setDirectory(int slot, const std::string& path, const std::string& includeExclude,
                           bool recurse = true, const std::string& extensions = "*.*");
  // The lines of the log, without their dates.
  std::vector<std::string> logLines() const;
};

// The words of a procedure that reports a failure; the reason has the failure's number behind it.
std::string procedureError(const std::string& name, const std::string& reason);

// One row for a catalogue built by hand.
struct CatalogueFile {
  std::string name;
  std::string directory;
  int size = 0;
  int matchNumber = noMatch;
};

// Fills the catalogue with these files, in this order; directories get rows as they come up. The
// sizes of the arrays are those of a new scan.
void buildCatalogue(const std::vector<CatalogueFile>& files);
// Likewise with files "a", "b", "c"... of these sizes, or with these match numbers.
void buildSizes(const std::vector<int>& sizes);
void buildMatches(const std::vector<int>& numbers);
// Makes all files of the catalogue one group.
void groupAll();

// The names or paths of the files of the catalogue, and a status column or the sizes, in their
// order.
std::vector<std::string> fileNames();
std::vector<std::string> filePaths();
std::vector<int> fileSizes();
std::vector<int> matchNumbers();
int stateOf(Int32 file);
// The names of the directories of the catalogue, in the order of their rows.
std::vector<std::string> directoryNames();

}  // namespace quernstoke
