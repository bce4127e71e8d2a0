#pragma once

#include "platform/platform.h"
#include "testing/fakes.h"
#include "testing/memoryFileSystem.h"
#include "testing/scriptedArchives.h"

namespace quernstoke {

// The engine at its start-up state over stand-ins for all that lies outside it: a disk in memory
// with the program in C:\Quernstoke, its directories made, no log open and no profile selected.
struct StandIns {
  StandIns();
  ~StandIns();
  StandIns(const StandIns&) = delete;
  StandIns& operator=(const StandIns&) = delete;

  // As if the program had ended and its process began anew, before its first procedure runs.
  static void newProcess();

  MemoryFileSystem disk;
  ScriptedArchives archiveLibrary{disk};
  ScriptedDialogs dialogBoxes;
  ScriptedDesktop desk;
  ScriptedEvents eventLoop;
  ManualClock clock;
  PlainLocale locale;
  WindowLog windows;
  ScriptedMainWindow mainWindow{windows};
  ScriptedScanStatusWindow statusWindow{windows};
  ScriptedResultsWindow resultsWindow{windows};

  // These in use. A test puts its own in place of one and passes all to usePlatform again.
  Platform platform{&disk,  &archiveLibrary, &dialogBoxes, &desk,         &eventLoop,
                    &clock, &locale,         &mainWindow,  &statusWindow, &resultsWindow};

  static constexpr const char* logPath = "C:\\Quernstoke\\quernstoke.log";
};

}  // namespace quernstoke
