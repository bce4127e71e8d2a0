#pragma once

#include "controls/form.h"
#include "platform/windows.h"
#include "progress/frmScanStatus.h"

namespace quernstoke {

// The window of a scan as the engine sees it: one form, made anew after it was unloaded.
class FormsScanStatusWindow final : public ScanStatusWindow {
 public:
  void show() override { form_->show(); }
  void unload() override { form_.unload(); }
  void refresh() override { form_->refresh(); }
  bool minimised() const override;
  void setCaption(std::string_view caption) override;
  void setTag(std::string_view tag) override;
  void basUpdateStatusBar() override { form_->basUpdateStatusBar(); }

  void labScanStatus(std::string_view text) override { form_->setStatus(text); }
  void labFile1(std::string_view text) override;
  void labElapsedTime(std::string_view text) override;
  void labRemainingTime(std::string_view text) override;
  void labEstimatedTime(std::string_view text) override;
  void labBufferReads(std::string_view text) override;
  void labLocalFileReads(std::string_view text) override;
  void labRemoteFileReads(std::string_view text) override;

  std::int32_t labFile1Width() const override;
  const TextRuler& labSizer() const override;

  forms::frmScanStatus& form() const { return form_.get(); }
  bool isLoaded() const { return form_.isLoaded(); }

 private:
  // Asking the window something loads it too.
  mutable FormInstance<forms::frmScanStatus> form_;
};

}  // namespace quernstoke
