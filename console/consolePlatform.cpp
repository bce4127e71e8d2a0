#include "console/consolePlatform.h"

#include "platform/platform.h"

namespace quernstoke {

ConsolePlatform::ConsolePlatform(const DriveTable& drives, OnStop onStop, bool showsProgress,
                                 StandardError& err)
    : files(drives),
      archives(drives),
      desktop(drives),
      dialogs(err),
      tally(files),
      stops(onStop, err),
      scanStatus(showsProgress, tally, stops, err),
      events(scanStatus, stops) {
  usePlatform({&files, &archives, &dialogs, &desktop, &events, &clock, &locale, &mainWindow,
               &scanStatus, &resultsWindow});
}

ConsolePlatform::~ConsolePlatform() {
  usePlatform({});
}

}  // namespace quernstoke
