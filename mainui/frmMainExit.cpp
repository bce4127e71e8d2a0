// The ways out of the main window: to a scan, to the results of the last one, out of the program.

#include <QCoreApplication>

#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/system.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/profileSelection.h"
#include "mainui/ui_frmMain.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/utf8.h"
#include "platform/windows.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke::forms {

void frmMain::cmdStart_Click() {
  procedure("cmdStart_Click", [this] {
    if (ProfileName.empty()) {
      dialogs().messageBox("Must select a profile first");
      return;
    }
    basSaveControlValues("");
    basSaveProfile("");
    if (!localCopiesFit()) return;
    StartMode = startMode::none;
    for (const QRadioButton* option : optStartModes_) {
      if (!option->isChecked()) continue;
      // Without the mark of a shortcut key, which some desktops put in.
      const std::string caption = upper(option->text().remove('&').toStdString());
      if (caption == "NEW") StartMode = startMode::newScan;
      if (caption == "CONTINUE") StartMode = startMode::continueScan;
    }
    if (StartMode == startMode::none) {
      dialogs().messageBox("Internal error detected when finding start mode");
      return;
    }
    basStartScan();
  });
}

// Whether the scan may start. Without the space, and if the person agrees, it does without local
// copies.
bool frmMain::localCopiesFit() {
  constexpr std::size_t rootLength = 3;
  if (!GlobalSettings.TransferFileLocally || !ProfileSettings.SlowNetwork) return true;
  basGetDiskSpace(firstCharacters(GlobalSettings.TempPath, rootLength), "FREEBYTES");
  const FixedPoint wanted = basConvertSize(GlobalSettings.TransferMaxDiskSpace,
                                           GlobalSettings.TransferMaxDiskSpaceMeasure);
  if (wanted <= DiskFreeBytes) return true;
  const Answer answer = dialogs().messageBox(
      "You do not have enough disk space to store files locally. Disable option?",
      Buttons::okCancel);
  if (answer != Answer::ok) return false;
  GlobalSettings.TransferFileLocally = false;
  return true;
}

void frmMain::cmdViewPreviousResults_Click() {
  procedure("cmdViewPreviousResults_Click", [this] {
    if (ProfileName.empty() || ProfileSettings.RunMode != runState::finished) return;
    quernstoke::frmResults().show();
    unload();
  });
}

void frmMain::cmdExit_Click() {
  procedure("cmdExit_Click", [this] {
    quernstoke::frmScanStatus().unload();
    quernstoke::frmResults().unload();
    if (!ProfileName.empty()) {
      basSaveControlValues("PROFILE");
      basSaveProfile("PROFILE");
      basSaveFilesList();
      basSaveDirTable();
    }
    basSaveControlValues("GLOBAL");
    basSaveProfile("GLOBAL");
    unload();
    QCoreApplication::exit();
  });
}

// A profile on the command line is scanned without a person.
void frmMain::Form_Activate() {
  procedure("Form_Activate", [this] {
    if (!pendingAutoStart_) return;
    pendingAutoStart_ = false;
    if (CommandLineProfile.empty()) return;
    setShownState(ShownState::minimised);
    ProfileName = CommandLineProfile;
    StartMode = startMode::newScan;
    bool ok = false;
    basProcessProfileSelection(ok);
    if (!ok) {
      ProfileName.clear();
      return;
    }
    basStartScan();
    if (DuplicateCount == 0)
      QCoreApplication::exit();
    else if (isLoaded())
      setShownState(ShownState::normal);
  });
}

}  // namespace quernstoke::forms
