#pragma once

#include <cstdint>
#include <string_view>

namespace quernstoke {

class TextRuler;

// What the engine asks of the windows: the real ones, those of the console, or scripted ones.

// Stands in for frmMain.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  virtual void load() = 0;
  virtual void setCaption(std::string_view caption) = 0;
  virtual void show() = 0;  // Modelessly; loads the window if it is not loaded.
  virtual void unload() = 0;
  virtual bool isLoaded() const = 0;
  // Brings the profile's settings into the controls; empty text: no profile.
  virtual void basUpdateProfileObjects(std::string_view profileName) = 0;
  virtual void basUpdateStatusBar() = 0;
};

// Stands in for frmScanStatus.
class ScanStatusWindow {
 public:
  virtual ~ScanStatusWindow() = default;

  virtual void show() = 0;  // Modelessly.
  virtual void unload() = 0;
  virtual void refresh() = 0;
  virtual bool minimised() const = 0;
  virtual void setCaption(std::string_view caption) = 0;
  virtual void setTag(std::string_view tag) = 0;
  virtual void basUpdateStatusBar() = 0;

  // Labels, each by its own name.
  virtual void labScanStatus(std::string_view text) = 0;
  virtual void labFile1(std::string_view text) = 0;
  virtual void labElapsedTime(std::string_view text) = 0;
  virtual void labRemainingTime(std::string_view text) = 0;
  virtual void labEstimatedTime(std::string_view text) = 0;
  virtual void labBufferReads(std::string_view text) = 0;
  virtual void labLocalFileReads(std::string_view text) = 0;
  virtual void labRemoteFileReads(std::string_view text) = 0;

  virtual std::int32_t labFile1Width() const = 0;  // In the units of labSizer.
  virtual const TextRuler& labSizer() const = 0;
};

// Stands in for frmResults.
class ResultsWindow {
 public:
  virtual ~ResultsWindow() = default;

  virtual void show() = 0;  // Modelessly.
  virtual void unload() = 0;
};

}  // namespace quernstoke
