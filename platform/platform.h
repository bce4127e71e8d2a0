#pragma once

namespace quernstoke {

class Archives;
class Clock;
class Desktop;
class Dialogs;
class EventLoop;
class FileSystem;
class Locale;
class MainWindow;
class ResultsWindow;
class ScanStatusWindow;

// All that the engine reaches of the world outside it. The caller of usePlatform owns the objects
// and keeps them alive as long as the engine runs.
struct Platform {
  FileSystem* files = nullptr;
  Archives* archives = nullptr;
  Dialogs* dialogs = nullptr;
  Desktop* desktop = nullptr;
  EventLoop* events = nullptr;
  Clock* clock = nullptr;
  Locale* locale = nullptr;
  MainWindow* frmMain = nullptr;
  ScanStatusWindow* frmScanStatus = nullptr;
  ResultsWindow* frmResults = nullptr;
};

void usePlatform(const Platform& platform);

FileSystem& files();
Archives& archives();
Dialogs& dialogs();
Desktop& desktop();
EventLoop& events();
Clock& systemClock();
Locale& userLocale();
MainWindow& frmMain();
ScanStatusWindow& frmScanStatus();
ResultsWindow& frmResults();

}  // namespace quernstoke
