#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "controls/fieldRules.h"
#include "controls/form.h"
#include "core/integers.h"

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QRadioButton;

namespace Ui {
class frmMain;
}

namespace quernstoke {

class FlexGridModel;
class MeasuringLabel;

namespace forms {

// The window in which a person chooses or makes a profile, sets it up and starts a scan. It is
// loaded anew at each return from a scan.
class frmMain : public Form {
  Q_OBJECT

 public:
  frmMain();
  ~frmMain() override;

  // Settings to controls and back.
  void basUpdateProfileObjects(std::string_view profileName);
  void basUpdateGlobalObjects(bool fill);
  void basSaveControlValues(std::string_view kind);
  void basUpdateStatusBar();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Profiles.
  void basUpdateProfileCombo();
  void cboProfile_Click();
  void createProfile();
  int positionOfProfile() const;
  void selectProfile(int position);
  void selectProfilesOfThisName();
  void cmdDeleteProfile_Click();

  // The way to a scan, to its results and out of the program.
  void cmdStart_Click();
  bool localCopiesFit();
  void cmdViewPreviousResults_Click();
  void cmdExit_Click();

  // Settings.
  void chkMatchingOption_Click(int index);
  void chkTransferLocally_Click();
  void cmdBrowse_Click();
  void cmdEditFileTypes_Click();
  void basUpdateBufferMemoryLabel();
  void fillProfileControls();
  void fillGlobalControls();
  void saveProfileControls();
  void saveGlobalControls();
  void addFieldRules();
  FieldRules::Verdict txtTempPath_LostFocus();
  // Whether the key has no effect.
  static bool txtContentMatchingPercent_KeyPress(const QKeyEvent& press);

  // The directory list.
  void basUpdateDirGrid();
  void prepareDirectoryGrid();
  void addDirectoryRow(Int32 slot);
  void restoreSelectedRow(Int32 rowBefore);
  void fitColumns();
  void basAddEditDir(Int16 row);
  void editCurrentRow();
  void cmdAddList_Click();
  void cmdEditList_Click();
  void cmdDelList_Click();
  void gridList_Click();
  void gridList_DblClick();

  // Help.
  void updateHelp();
  void displayHelp(Int16 helpId);
  void watchPointer();
  void sbarStatus_MouseMove(int x);

  void connectControls();
  void preparePictures();
  void makeRoomForNumbers();
  Int32 pictureWidth() const;
  FlexGridModel& gridList() const;
  Int32 tickedOptions() const;

  std::unique_ptr<Ui::frmMain> ui_;
  std::array<QCheckBox*, 3> chkMatchingOption_;
  std::array<QCheckBox*, 2> chkScanHiddenSystem_;
  std::array<QComboBox*, 3> cboSizeMeasure_;
  std::array<QRadioButton*, 2> optStartModes_;
  std::unique_ptr<FieldRules> rules_;
  MeasuringLabel* labSizer_;
  Int32 fittedWidth_ = 0;  // That of the grid when its columns were fitted.
  bool pendingAutoStart_ = false;
};

}  // namespace forms
}  // namespace quernstoke
