#include <QApplication>
#include <QFileDialog>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "controls/form.h"
#include "core/modMain.h"
#include "dirmatch/frmDirMatch.h"
#include "export/frmExportResults.h"
#include "mainui/frmGetDirName.h"
#include "mainui/frmMainWindow.h"
#include "mainui/frmSplashScreen.h"
#include "mainui/modalForms.h"
#include "pictures/pictures.h"
#include "platform/linux/linuxClock.h"
#include "platform/linux/linuxDesktop.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/linuxLocale.h"
#include "platform/linux/zipArchives.h"
#include "platform/platform.h"
#include "platform/qt/qtDialogs.h"
#include "platform/qt/qtEventLoop.h"
#include "platform/qt/qtText.h"
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

// The directory of the executable, or what QUERNSTOKE_HOME names.
std::string programHome() {
  const char* const named = std::getenv("QUERNSTOKE_HOME");
  if (named != nullptr && *named != '\0') return std::filesystem::canonical(named);
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

// The arguments are taken for one text, as it was typed.
std::string commandLine(int argc, char** argv) {
  std::string text;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) text += ' ';
    text += argv[i];
  }
  return text;
}

// Lets the person choose a directory, beginning with that of DialogText, which takes the choice.
void chooseDirectory(const DriveTable& drives) {
  const std::string chosen = QFileDialog::getExistingDirectory(QApplication::activeWindow(), {},
                                                               qtText(drives.linuxPath(DialogText)))
                                 .toStdString();
  DialogText = chosen.empty() ? std::string() : drives.programPath(chosen);
}

int run(int argc, char** argv) {
  // The toolkit gets no option of the command line.
  int toolkitArguments = 1;
  const QApplication application(toolkitArguments, argv);
  QApplication::setApplicationName("Quernstoke");
  QApplication::setDesktopFileName("quernstoke");
  QApplication::setWindowIcon(programIcon());

  const DriveTable drives = DriveTable::fromEnvironment();
  const WindowsPlatform platform(drives);
  AppPath = drives.programPath(programHome());
  if (AppPath.ends_with('\\')) AppPath.pop_back();
  ExeName = "quernstoke";
  ProcessCommandLine = commandLine(argc, argv);
  modalForms.frmSplashScreen = [] { (new forms::frmSplashScreen)->showModal(); };
  modalForms.frmGetDirName = [] { (new forms::frmGetDirName)->showModal(); };
  modalForms.frmExportResults = [] { (new forms::frmExportResults)->showModal(); };
  modalForms.frmDirMatch = [] { (new forms::frmDirMatch)->showModal(); };
  modalForms.frmDirTree = [&] { chooseDirectory(drives); };
  modalForms.frmAddFileType = [&] {
    quernstoke::dialogs().messageBox("File types can't be edited yet");
  };
  modalForms.frmExportResults = [] {
    quernstoke::dialogs().messageBox("Results can't be exported yet");
  };
  Main();
  const int status = QApplication::exec();
  Form::deleteAll();
  return status;
}

}  // namespace

}  // namespace quernstoke

int main(int argc, char** argv) {
  try {
    return quernstoke::run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "quernstoke: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
