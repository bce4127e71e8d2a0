#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "catalogue/fileTable.h"
#include "core/integers.h"
#include "testing/sabotagedTree.h"
#include "testing/saboteur.h"
#include "testing/standIns.h"

namespace quernstoke::sabotage {

using Words = std::multiset<std::string>;

// The program over a disk of these files.
class SabotagedScan : private StandIns {
 public:
  // `user` is what of the tree is a person's own. It must last as long as this.
  SabotagedScan(const Case& given, const Tree& user, const Tree& tree);

  // Makes the profile and, for a scan that is to be continued, pauses one. What the disk holds then
  // is where each scan begins.
  Tree prepare();

  // Starts the program, selects the profile and, if that could be had, scans.
  void run(Saboteur& saboteur) { runAs(scan_, saboteur); }
  void goOn() { runAs(Scan::continued, nothingBreaks); }

  void breakReadOfFilesSnapshot();
  std::string filesSnapshot() const;
  // What the program has said since it started, and in the log of the scan.
  Words told() const;
  // A profile loses the setting whose record could not be written, and may ask for less then.
  bool canGoOnByContent() const;

  // That a scan in which nothing broke has gone everywhere.
  void expectAFullScan() const;
  void expectTrueMatches() const;
  void expectUserFilesAsTheyWere();
  // Of a file whose directory is lost the bare name is none of another file. A temp file that
  // vanished is opened by no name.
  void expectOnlyKnownPathsOpened() const;
  // No others are ever cleared away.
  void expectOnlyTempNamesLeftInTemp() const;
  // What fails on the program's own files leaves them open, which the end of the program mends.
  void expectOnlyOwnFilesOpen() const;
  void expectOnlyTheBrokenFileOpen(const std::string& brokenPath) const;
  // Ends the program and starts it again. What was torn is read, or refused in words; a profile is
  // missing only after words in the scan.
  void expectAUsableProgram();

 private:
  static bool isOwn(const std::string& path);

  std::string criteria() const;

  void makeProfile();
  // As the first person does who starts the program. The temp directory goes once more, as a scan
  // can make it too.
  bool startForTheFirstTime();
  void runAs(Scan scan, Saboteur& saboteur);

  void startProgram();
  bool hasWindow() const;
  // Whether there is a window, and a profile that could be selected.
  bool restart();
  static void pauseAfterTheFirstMatch();

  // False after a snapshot of the directories that could not be written, or only in part.
  static bool hasDirectory(Int32 file);
  static bool isEntry(Int32 file);
  std::string contentOf(Int32 file) const;
  // How many files have a match number and meet the condition.
  template <class Condition>
  static int countNumbered(Condition condition) {
    int count = 0;
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusMatch][file] != noMatch && condition(file)) ++count;
    return count;
  }
  std::int64_t readsOfData() const;
  Files allStoredFiles();

  const Scan scan_;
  const Way way_;
  const Tree& user_;
  std::map<std::string, std::string> contentOfEntry_;  // There is one archive.
};

}  // namespace quernstoke::sabotage
