#include "mainui/frmMain.h"

#include <QTabBar>

#include "controls/controlAdapters.h"
#include "controls/fieldRules.h"
#include "controls/flexGrid.h"
#include "controls/measuringLabel.h"
#include "controls/panelStatusBar.h"
#include "controls/units.h"
#include "controls/wheelGuard.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "mainui/profileSelection.h"
#include "mainui/quickHelp.h"
#include "mainui/ui_frmMain.h"
#include "pictures/pictures.h"
#include "progress/scanStatus.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr int statusPanelCount = 9;

}  // namespace

frmMain::frmMain()
    : ui_(std::make_unique<Ui::frmMain>()), rules_(std::make_unique<FieldRules>(this)) {
  ui_->setupUi(this);
  labSizer_ = new MeasuringLabel(this);
  labSizer_->setObjectName("labSizer");
  ui_->sbarStatus->setPanelCount(statusPanelCount);
  ui_->fraStartMode->setVisible(false);
  // Its tabs, not the pages: with these in its own chain the focus would go round for ever.
  setTabOrder(ui_->cmdEditFileTypes, ui_->tabMain->tabBar());
  ui_->cboProfile->setFocus();
  chkMatchingOption_ = {ui_->chkMatchingOption_0, ui_->chkMatchingOption_1,
                        ui_->chkMatchingOption_2};
  chkScanHiddenSystem_ = {ui_->chkScanHiddenSystem_0, ui_->chkScanHiddenSystem_1};
  cboSizeMeasure_ = {ui_->cboSizeMeasure_0, ui_->cboSizeMeasure_1, ui_->cboSizeMeasure_2};
  optStartModes_ = {ui_->optStartModes_0, ui_->optStartModes_1};
  preparePictures();
  connectControls();
  addFieldRules();
  for (QComboBox* list : findChildren<QComboBox*>())
    guardFromWheel(*list);
  guardFromWheel(*ui_->tabMain->tabBar());
  makeRoomForNumbers();
  watchPointer();
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
  procedure("Form_Load", [this] {
    for (QComboBox* measure : cboSizeMeasure_) {
      measure->clear();
      measure->addItems({"B", "KB", "MB", "GB"});
      measure->setCurrentIndex(-1);
    }
    basUpdateGlobalObjects(true);
    for (int index = 0; index < 3; ++index)
      chkMatchingOption_[static_cast<std::size_t>(index)]->setChecked(false);
    for (int index = 0; index < 3; ++index)
      chkMatchingOption_Click(index);
    ui_->cboSizeMeasure_0->setCurrentText("B");
    ui_->cboSizeMeasure_1->setCurrentText("GB");
    for (QWidget* button : {ui_->cmdDelList, ui_->cmdAddList, ui_->cmdEditList})
      button->setEnabled(false);
    basUpdateProfileCombo();
    ui_->tabMain->setCurrentIndex(0);
    QtFrame(ui_->fraHelp).setTag("");
    if (!ProfileName.empty()) {
      setTag(*ui_->cboProfile, ignoreTag);
      selectProfile(positionOfProfile());
      takeIgnoreTag(*ui_->cboProfile);  // A profile that isn't in the list has selected nothing.
      // The name is no kind of settings file, unless the profile has one of their names.
      basLoadProfile(ProfileName);
      bool ok = false;
      basProcessProfileSelection(ok);
    }
    ScanDetailsShown = false;
    HelpState = 0;
    displayHelp(-1);
    CommandLineProfile = ProcessCommandLine;
    if (!CommandLineProfile.empty()) pendingAutoStart_ = true;
  });
}

void frmMain::connectControls() {
  // A selection by the program is told by selectProfile.
  connect(ui_->cboProfile, &QComboBox::activated, this, &frmMain::cboProfile_Click);
  // Also one that has moved no focus, by a shortcut or a screen reader, must leave the fields
  // right.
  const auto onClick = [this](QAbstractButton* button, void (frmMain::*handler)()) {
    connect(button, &QAbstractButton::clicked, this, [this, handler] {
      if (rules_->letsGo()) (this->*handler)();
    });
  };
  onClick(ui_->cmdViewPreviousResults, &frmMain::cmdViewPreviousResults_Click);
  onClick(ui_->cmdDeleteProfile, &frmMain::cmdDeleteProfile_Click);
  onClick(ui_->cmdAddList, &frmMain::cmdAddList_Click);
  onClick(ui_->cmdEditList, &frmMain::cmdEditList_Click);
  onClick(ui_->cmdDelList, &frmMain::cmdDelList_Click);
  onClick(ui_->cmdStart, &frmMain::cmdStart_Click);
  onClick(ui_->cmdExit_0, &frmMain::cmdExit_Click);
  onClick(ui_->cmdBrowse_0, &frmMain::cmdBrowse_Click);
  onClick(ui_->cmdEditFileTypes, &frmMain::cmdEditFileTypes_Click);
  for (int index = 0; index < 3; ++index)
    connect(chkMatchingOption_[static_cast<std::size_t>(index)], &QCheckBox::toggled, this,
            [this, index] { chkMatchingOption_Click(index); });
  connect(ui_->chkTransferLocally, &QCheckBox::toggled, this, &frmMain::chkTransferLocally_Click);
  for (QLineEdit* field : {ui_->txtNumberOfFileBuffers, ui_->txtFileBufferSize})
    connect(field, &QLineEdit::textChanged, this, &frmMain::basUpdateBufferMemoryLabel);
  connect(ui_->gridList, &FlexGrid::click, this, &frmMain::gridList_Click);
  connect(ui_->gridList, &FlexGrid::dblClick, this, &frmMain::gridList_DblClick);
  connect(ui_->sbarStatus, &PanelStatusBar::mouseMove, this, &frmMain::sbarStatus_MouseMove);
}

void frmMain::preparePictures() {
  ui_->cmdViewPreviousResults->setIcon(picture("PreviousResults"));
  ui_->cmdDeleteProfile->setIcon(picture("DeleteProfile"));
  prepareDirectoryGrid();
}

// Each field of a number has room for the longest one that it is meant for.
void frmMain::makeRoomForNumbers() {
  constexpr int anySize = 11;  // With a sign.
  for (const auto& [field, digits] :
       std::initializer_list<std::pair<QLineEdit*, int>>{{ui_->txtContentMatchingPercent, 5},
                                                         {ui_->txtMinimumSize, anySize},
                                                         {ui_->txtMaximumSize, anySize},
                                                         {ui_->txtMaxDiskSpace, anySize},
                                                         {ui_->txtNumberOfFileBuffers, 8},
                                                         {ui_->txtFileBufferSize, 8}}) {
    field->ensurePolished();
    const QFontMetrics metrics = field->fontMetrics();
    // What a field asks for is room for 17 letters and its frame.
    const int frame = field->sizeHint().width() - 17 * metrics.horizontalAdvance(u'x');
    field->setFixedWidth(metrics.horizontalAdvance(QString(digits, u'0')) + frame);
  }
}

// In the unit that pictures are measured in.
Int32 frmMain::pictureWidth() const {
  return pictureUnitsFromPixels(pictureSize("SmallPlus").width());
}

}  // namespace quernstoke::forms
