#include "platform/platform.h"

namespace quernstoke {

namespace {

Platform current;

}  // namespace

void usePlatform(const Platform& platform) {
  current = platform;
}

FileSystem& files() {
  return *current.files;
}
Archives& archives() {
  return *current.archives;
}
Dialogs& dialogs() {
  return *current.dialogs;
}
Desktop& desktop() {
  return *current.desktop;
}
EventLoop& events() {
  return *current.events;
}
Clock& systemClock() {
  return *current.clock;
}
Locale& userLocale() {
  return *current.locale;
}
MainWindow& frmMain() {
  return *current.frmMain;
}
ScanStatusWindow& frmScanStatus() {
  return *current.frmScanStatus;
}
ResultsWindow& frmResults() {
  return *current.frmResults;
}

}  // namespace quernstoke
