#pragma once

#include "controls/form.h"
#include "platform/windows.h"
#include "results/frmResults.h"

namespace quernstoke {

// The results window as the engine sees it: one form, made anew after it was unloaded.
class FormsResultsWindow final : public ResultsWindow {
 public:
  void show() override { form_->show(); }
  void unload() override { form_.unload(); }

  forms::frmResults& form() { return form_.get(); }
  bool isLoaded() const { return form_.isLoaded(); }

 private:
  FormInstance<forms::frmResults> form_;
};

}  // namespace quernstoke
