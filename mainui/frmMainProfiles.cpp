// The profiles of the main window: choosing, making and deleting.

#include "controls/tag.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/profileSelection.h"
#include "mainui/ui_frmMain.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr const char* newProfile = "<New Profile>";

// The name without the characters that a file's name can't hold.
std::string asFileName(std::string name) {
  constexpr std::string_view refused = "/\\:*?\"<>|";
  std::erase_if(name, [&](char c) { return refused.find(c) != std::string_view::npos; });
  return name;
}

bool isInProfileList(const std::string& name) {
  for (Int32 slot = 1; slot <= ProfileList.ProfileNameList.upperBound(); ++slot) {
    const std::string& known = ProfileList.ProfileNameList[slot];
    if (!known.empty() && equalIgnoringCase(known, name)) return true;
  }
  return false;
}

// Asks until the name is a new one. Empty if the person gave up; a name of nothing but refused
// characters is empty too, and taken.
bool askForNewName() {
  for (;;) {
    ProfileName = dialogs().inputBox("Enter new profile name", "Profile Name", "Untitled");
    if (ProfileName.empty()) return false;
    ProfileName = asFileName(ProfileName);
    if (!isInProfileList(ProfileName)) return true;
    dialogs().messageBox("List already exists", Buttons::ok, "Error");
  }
}

void deleteFilesOfProfile() {
  for (const char* extension : {".profile", ".dir", ".files"}) {
    const std::string path = ProfilesDir + "\\" + ProfileName + extension;
    if (basFileExists(path)) files().remove(path);
  }
}

void clearSlotsOfProfile() {
  for (Int32 slot = 0; slot <= ProfileList.ProfileNameList.upperBound(); ++slot) {
    if (!equalIgnoringCase(ProfileList.ProfileNameList[slot], ProfileName)) continue;
    ProfileList.ProfileNameList[slot].clear();
    ProfileList.ProfileDateList[slot].clear();
  }
}

}  // namespace

void frmMain::basUpdateProfileCombo() {
  procedure("basUpdateProfileCombo", [this] {
    ui_->cboProfile->clear();
    ui_->cboProfile->addItem(newProfile);
    for (Int32 slot = 1; slot <= ProfileList.ProfileNameList.upperBound(); ++slot) {
      const std::string& name = ProfileList.ProfileNameList[slot];
      if (!name.empty()) ui_->cboProfile->addItem(qtText(name));
    }
    ui_->cboProfile->setCurrentIndex(-1);
    setTag(*ui_->cboProfile, "");
  });
}

// The name may have been typed in another letter case; -1 if it isn't in the list.
int frmMain::positionOfProfile() const {
  const QString name = qtText(ProfileName);
  const int exact = ui_->cboProfile->findText(name);
  return exact >= 0 ? exact : ui_->cboProfile->findText(name, Qt::MatchFixedString);
}

// A selection by the program counts as a click, as one by the person does, if it changes anything.
void frmMain::selectProfile(int position) {
  if (position == ui_->cboProfile->currentIndex()) return;
  ui_->cboProfile->setCurrentIndex(position);
  cboProfile_Click();
}

void frmMain::cboProfile_Click() {
  procedure("cboProfile_Click", [this] {
    if (takeIgnoreTag(*ui_->cboProfile)) return;
    if (!ProfileName.empty()) {
      basSaveControlValues("");
      basSaveProfile("PROFILE");
    }
    if (ui_->cboProfile->currentText() != newProfile) {
      ProfileName = engineText(ui_->cboProfile->currentText());
      bool ok = false;
      basProcessProfileSelection(ok);
    } else if (askForNewName()) {
      createProfile();
    } else {
      return;
    }
    updateHelp();
  });
}

void frmMain::createProfile() {
  basSaveProfile("NEWPROFILE");
  basSaveProfile("GLOBAL");
  basUpdateProfileCombo();
  basUpdateProfileObjects(ProfileName);
  selectProfilesOfThisName();
  ui_->txtDescription->setText(qtText(ProfileName));
  ui_->txtDescription->selectAll();
  ui_->txtDescription->setFocus();
}

void frmMain::selectProfilesOfThisName() {
  for (int position = 0; position < ui_->cboProfile->count(); ++position)
    if (equalIgnoringCase(engineText(ui_->cboProfile->itemText(position)), ProfileName))
      selectProfile(position);
}

void frmMain::cmdDeleteProfile_Click() {
  procedure("cmdDeleteProfile_Click", [this] {
    if (ProfileName.empty()) return;
    const Answer answer =
        dialogs().messageBox("Delete profile '" + ProfileName + "'", Buttons::okCancel);
    if (answer != Answer::ok) return;
    deleteFilesOfProfile();
    clearSlotsOfProfile();
    ProfileName.clear();
    basUpdateProfileCombo();
    basUpdateProfileObjects("");
  });
}

}  // namespace quernstoke::forms
