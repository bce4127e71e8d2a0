#pragma once

#include <memory>

#include "controls/form.h"

class QTimer;

namespace Ui {
class frmSplashScreen;
}

namespace quernstoke::forms {

// The window that greets a person while the program starts, and goes by itself after 3 seconds.
class frmSplashScreen : public Form {
  Q_OBJECT

 public:
  frmSplashScreen();
  ~frmSplashScreen() override;

 protected:
  void Form_Load() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TimerSplashScreen_Timer();
  void labWebAddress_Click();

  std::unique_ptr<Ui::frmSplashScreen> ui_;
  QTimer* TimerSplashScreen_;
};

}  // namespace quernstoke::forms
