#pragma once

#include "controls/form.h"
#include "mainui/frmMain.h"
#include "platform/qt/qtText.h"
#include "platform/windows.h"

namespace quernstoke {

// The main window as the engine sees it: one form, made anew after it was unloaded.
class FormsMainWindow final : public MainWindow {
 public:
  void load() override { form_.get(); }
  void setCaption(std::string_view caption) override { form_->setWindowTitle(qtText(caption)); }
  void show() override { form_->show(); }
  void unload() override { form_.unload(); }
  bool isLoaded() const override { return form_.isLoaded(); }
  void basUpdateProfileObjects(std::string_view profileName) override {
    form_->basUpdateProfileObjects(profileName);
  }
  void basUpdateStatusBar() override { form_->basUpdateStatusBar(); }

  forms::frmMain& form() { return form_.get(); }

 private:
  FormInstance<forms::frmMain> form_;
};

}  // namespace quernstoke
