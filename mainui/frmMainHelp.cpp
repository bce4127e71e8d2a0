// The help panel of the main window: what it shows for the control under the pointer or with the
// keyboard's focus.

#include <QTabBar>

#include "controls/controlAdapters.h"
#include "controls/flexGridModel.h"
#include "controls/helpWatch.h"
#include "controls/panelStatusBar.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/quickHelp.h"
#include "mainui/statusPanels.h"
#include "mainui/ui_frmMain.h"

namespace quernstoke::forms {

void frmMain::updateHelp() {
  HelpState = basDetermineHelpState(gridList().rows(), tickedOptions());
  displayHelp(-1);
}

void frmMain::displayHelp(Int16 helpId) {
  QtFrame frame(ui_->fraHelp);
  QtTextBox text(ui_->txtHelp);
  basDisplayHelp(helpId, frame, text);
}

// The spaces between the controls show the text of the step reached.
void frmMain::watchPointer() {
  watchForHelp(*this,
               {this, ui_->fraProfile, ui_->fraWhatToScan, ui_->fraScanOptions, ui_->tabMain,
                ui_->tabMain->tabBar(), ui_->tabProfileSettings, ui_->tabGlobalSettings},
               [this](int helpId) { displayHelp(helpId); });
}

void frmMain::sbarStatus_MouseMove(int x) {
  procedure("sbarStatus_MouseMove", [&] {
    std::string tag;
    for (int number = 1; number <= ui_->sbarStatus->panelCount(); ++number) {
      const StatusPanel& panel = ui_->sbarStatus->panel(number);
      if (x > panel.left && x < panel.left + panel.width) tag = panel.tag;
    }
    if (!tag.empty()) displayHelp(toNumber(tag));
  });
}

void frmMain::basUpdateStatusBar() {
  procedure("basUpdateStatusBar", [this] {
    ui_->sbarStatus->setVisible(!ProfileName.empty());
    for (const PanelText& panel : mainStatusPanels()) {
      ui_->sbarStatus->setPanelText(panel.number, panel.text);
      ui_->sbarStatus->setPanelTag(panel.number, panel.tag);
    }
  });
}

}  // namespace quernstoke::forms
