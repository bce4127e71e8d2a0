#pragma once

#include "console/consoleDialogs.h"
#include "console/consoleWindows.h"
#include "console/scanTally.h"
#include "console/stopRequests.h"
#include "platform/eventLoop.h"
#include "platform/linux/linuxClock.h"
#include "platform/linux/linuxDesktop.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/linuxLocale.h"
#include "platform/linux/zipArchives.h"

namespace quernstoke {

// Serves at a yield what a program without windows has to serve.
class ConsoleEvents final : public EventLoop {
 public:
  ConsoleEvents(ConsoleScanStatus& status, StopRequests& stops) : status_(status), stops_(stops) {}

  void yield() override {
    status_.paint();
    stops_.atYield();
  }

 private:
  ConsoleScanStatus& status_;
  StopRequests& stops_;
};

// All that lies around the engine when it runs without windows. The engine uses it as long as it
// lives.
class ConsolePlatform {
 public:
  ConsolePlatform(const DriveTable& drives, OnStop onStop, bool showsProgress, StandardError& err);
  ~ConsolePlatform();
  ConsolePlatform(const ConsolePlatform&) = delete;
  ConsolePlatform& operator=(const ConsolePlatform&) = delete;

  LinuxFileSystem files;
  ZipArchives archives;
  LinuxDesktop desktop;
  LinuxClock clock;
  LinuxLocale locale;
  ConsoleDialogs dialogs;
  ScanTally tally;
  StopRequests stops;
  ConsoleMainWindow mainWindow;
  ConsoleScanStatus scanStatus;
  ConsoleResultsWindow resultsWindow;
  ConsoleEvents events;
};

}  // namespace quernstoke
