#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "controls/form.h"

class QTimer;

namespace Ui {
class frmScanStatus;
}

namespace quernstoke::forms {

// The window of a scan: in its short view progress, buttons, the status and the status bar; in its
// long view also the current file, times and read counters. Its height is that of the view.
class frmScanStatus : public Form {
  Q_OBJECT

 public:
  frmScanStatus();
  ~frmScanStatus() override;

  void basUpdateStatusBar();
  void setStatus(std::string_view text);
  Ui::frmScanStatus& controls() { return *ui_; }

 protected:
  void Form_Load() override;
  void Form_Paint() override;
  bool Form_QueryUnload(UnloadCause cause) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void cmdPause_Click();
  void cmdAbort_Click();
  void cmdMoreLess_Click();
  void sbarStatus_MouseMove(int x);
  void Timer1_Timer();
  void Form_MouseMove();

  std::string tagOfPanelAt(int x) const;
  void connectControls();
  void makeRoomForPanels();
  void measureViews();
  void setViewHeight(int height);
  int innerWidth() const;
  void showFilesPanel();
  void showTempPanel();
  void setPanel(int number, std::string_view text, std::string_view tag);
  void setHelpInterval(int milliseconds);
  void hideHelp();

  std::unique_ptr<Ui::frmScanStatus> ui_;
  QTimer* Timer1_;
  int lineHeight_ = 0;  // Of the status, and of the help.
};

}  // namespace quernstoke::forms
