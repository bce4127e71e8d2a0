#pragma once

#include "controls/form.h"
#include "platform/windows.h"
#include "results/frmResults.h"

namespace quernstoke {

// The results window as the engine sees it.
class FormsResultsWindow final : public ResultsWindow {
 public:
  void show() override { form_->show(); }
  void unload() override { form_.unload(); }

 private:
  FormInstance<forms::frmResults> form_;
};

}  // namespace quernstoke
