#pragma once

#include <chrono>
#include <limits>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/windows.h"

namespace quernstoke {

class ScanTally;
class StandardError;
class StopRequests;

// Stands in for frmMain: a window without controls.
class ConsoleMainWindow final : public MainWindow {
 public:
  void load() override;
  void show() override {
    if (!isLoaded_) load();
  }
  void setCaption(std::string_view /*caption*/) override {}
  void unload() override { isLoaded_ = false; }
  bool isLoaded() const override { return isLoaded_; }
  void basUpdateProfileObjects(std::string_view /*profileName*/) override {}
  void basUpdateStatusBar() override {}

 private:
  bool isLoaded_ = false;
};

// Stands in for frmScanStatus: one line that is drawn over at most ten times a second.
class ConsoleScanStatus final : public ScanStatusWindow {
 public:
  ConsoleScanStatus(bool showsProgress, ScanTally& tally, StopRequests& stops, StandardError& err)
      : showsProgress_(showsProgress), tally_(tally), stops_(stops), err_(err) {}

  // Draws the line if it is time to.
  void paint();

  void show() override;
  void unload() override;
  void refresh() override {}
  bool minimised() const override { return false; }
  void setCaption(std::string_view /*caption*/) override {}
  void setTag(std::string_view /*tag*/) override {}
  void basUpdateStatusBar() override;

  void labScanStatus(std::string_view text) override;
  void labFile1(std::string_view text) override;
  void labElapsedTime(std::string_view /*text*/) override {}
  void labRemainingTime(std::string_view text) override { remainingTime_ = text; }
  void labEstimatedTime(std::string_view /*text*/) override {}
  void labBufferReads(std::string_view /*text*/) override {}
  void labLocalFileReads(std::string_view /*text*/) override {}
  void labRemoteFileReads(std::string_view /*text*/) override {}

  // No path is shown, so none has to be made to fit.
  std::int32_t labFile1Width() const override { return std::numeric_limits<std::int32_t>::max(); }
  const TextRuler& labSizer() const override { return ruler_; }

 private:
  class Ruler final : public TextRuler {
   public:
    std::int32_t width(std::string_view text) const override {
      return static_cast<std::int32_t>(text.size());
    }
  };

  std::string progressText() const;

  bool showsProgress_;
  ScanTally& tally_;
  StopRequests& stops_;
  StandardError& err_;
  Ruler ruler_;
  std::string statusText_;
  std::string remainingTime_;
  bool showsPrimary_ = false;  // The update that is going on names a file.
  std::chrono::steady_clock::time_point nextPaint_;
};

// Stands in for frmResults; what it would show is written when the scan is over.
class ConsoleResultsWindow final : public ResultsWindow {
 public:
  void show() override {}
  void unload() override {}
};

}  // namespace quernstoke
