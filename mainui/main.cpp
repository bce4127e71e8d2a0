#include <QApplication>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <string>

#include "controls/form.h"
#include "core/modMain.h"
#include "dirmatch/frmDirMatch.h"
#include "export/frmExportResults.h"
#include "mainui/frmAddFileType.h"
#include "mainui/frmDirParent.h"
#include "mainui/frmDirTree.h"
#include "mainui/frmGetDirName.h"
#include "mainui/frmMainWindow.h"
#include "mainui/frmSplashScreen.h"
#include "mainui/modalForms.h"
#include "pictures/pictures.h"
#include "platform/linux/linuxClock.h"
#include "platform/linux/linuxDesktop.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/linuxLocale.h"
#include "platform/linux/process.h"
#include "platform/linux/zipArchives.h"
#include "platform/platform.h"
#include "platform/qt/qtDialogs.h"
#include "platform/qt/qtEventLoop.h"
#include "progress/frmScanStatusWindow.h"
#include "results/frmResultsWindow.h"

namespace quernstoke {

namespace {

// All that lies around the engine when it runs with windows.
struct WindowsPlatform {
  explicit WindowsPlatform(const DriveTable& drives)
      : files(drives), archives(drives), desktop(drives) {
    usePlatform({&files, &archives, &dialogs, &desktop, &events, &clock, &locale, &mainWindow,
                 &scanStatus, &results});
  }
  ~WindowsPlatform() { usePlatform({}); }
  WindowsPlatform(const WindowsPlatform&) = delete;
  WindowsPlatform& operator=(const WindowsPlatform&) = delete;

  LinuxFileSystem files;
  ZipArchives archives;
  QtDialogs dialogs;
  LinuxDesktop desktop;
  QtEventLoop events;
  LinuxClock clock;
  LinuxLocale locale;
  FormsMainWindow mainWindow;
  FormsScanStatusWindow scanStatus;
  FormsResultsWindow results;
};

int run(int argc, char** argv) {
  const DriveTable drives = DriveTable::fromEnvironment();
  const WindowsPlatform platform(drives);
  AppPath = homeAsProgramPath(realDirectory(namedHome()), drives);
  ExeName = executableName();
  ProcessCommandLine = commandLine(argc, argv);
  modalForms.frmSplashScreen = [] { (new forms::frmSplashScreen)->showModal(); };
  modalForms.frmGetDirName = [] { (new forms::frmGetDirName)->showModal(); };
  modalForms.frmExportResults = [] { (new forms::frmExportResults)->showModal(); };
  modalForms.frmDirParent = [] { (new forms::frmDirParent)->showModal(); };
  modalForms.frmDirMatch = [] { (new forms::frmDirMatch)->showModal(); };
  modalForms.frmDirTree = [] { (new forms::frmDirTree)->showModal(); };
  modalForms.frmAddFileType = [] { (new forms::frmAddFileType)->showModal(); };
  Main();
  // Without its window there is nothing left that could end the program; it has told why.
  const int status = platform.mainWindow.isLoaded() ? QApplication::exec() : EXIT_FAILURE;
  Form::deleteAll();
  return status;
}

}  // namespace

}  // namespace quernstoke

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // A file that may not become so long is an error of writing.
  // The toolkit gets no option of the command line.
  int toolkitArguments = 1;
  const QApplication application(toolkitArguments, argv);
  QApplication::setApplicationName("Quernstoke");
  QApplication::setDesktopFileName("quernstoke");
  QApplication::setWindowIcon(quernstoke::programIcon());
  try {
    return quernstoke::run(argc, argv);
  } catch (const std::exception& error) {
    quernstoke::QtDialogs().messageBox(error.what());
    return EXIT_FAILURE;
  }
}
