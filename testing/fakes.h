#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/eventLoop.h"
#include "platform/failure.h"
#include "platform/locale.h"
#include "platform/windows.h"

namespace quernstoke {

// Keeps what was said, and answers as told; without an answer ready, with the first button.
class ScriptedDialogs : public Dialogs {
 public:
  std::vector<std::string> messages;
  std::vector<std::string> titles;        // Of the same boxes.
  std::vector<Buttons> buttons;           // Of the message boxes alone.
  std::vector<Icon> icons;                // Likewise.
  std::vector<Answer> answers;            // Taken from the front.
  std::vector<std::string> inputs;        // Likewise, for input boxes.
  std::vector<std::string> presets;       // Of the input boxes.
  std::optional<FailureNumber> failNext;  // The next box fails with this.
  std::function<void()> onBox;            // Runs while the next box is up.
  int beeps = 0;

  Answer messageBox(std::string_view text, Buttons shown, std::string_view title,
                    Icon icon) override;
  std::string inputBox(std::string_view prompt, std::string_view title,
                       std::string_view preset) override;
  void beep() override { ++beeps; }

 private:
  void comeUp();
};

class ScriptedDesktop : public Desktop {
 public:
  std::int32_t shellAnswer = shellSuccess;
  std::optional<std::string> documents = "C:\\Users\\Ann\\Documents";
  std::optional<DiskSpace> space;
  std::vector<std::string> driveTexts = {"C: [/]"};
  std::optional<FailureNumber> failure;  // What every call fails with, if set.
  struct Opened {
    std::string operation, file, parameters, directory;
    ShowMode showMode;
    std::intptr_t window;
  };
  std::vector<Opened> opened;
  std::string askedDrive;

  std::int32_t shellExecute(const ShellRequest& request) override;
  std::optional<std::string> specialFolder(std::int32_t id) override;
  std::optional<DiskSpace> diskSpace(std::string_view rootPath) override;
  std::vector<std::string> drives() override;
};

// Runs `onYield` at each yield, which is where a person's clicks come in.
class ScriptedEvents : public EventLoop {
 public:
  int yields = 0;
  std::function<void()> onYield;

  void yield() override;
};

// Stands still unless `step` is set, which each reading adds.
class ManualClock : public Clock {
 public:
  DateTime time;
  std::int64_t step = 0;

  DateTime now() override;
};

// Case mapping of ASCII and of one letter beyond it, dates in one fixed form, and numbers as
// `thousands` and `point` say.
class PlainLocale : public Locale {
 public:
  std::string lower(std::string_view text) override;
  std::string upper(std::string_view text) override;
  std::string generalDate(DateTime when) override;  // 2004-11-02 16:41:08
  std::string shortDate(DateTime when) override;    // 2004-11-02
  std::string thousandsSeparator() override { return thousands; }
  std::string decimalPoint() override { return point; }

  std::string thousands = ",";
  std::string point = ".";
};

// Windows write down what is done to them, in one list: "frmMain show".
using WindowLog = std::vector<std::string>;

class ScriptedMainWindow : public MainWindow {
 public:
  explicit ScriptedMainWindow(WindowLog& log) : log_(log) {}

  std::string caption;
  bool loaded = true;

  void load() override { log_.emplace_back("frmMain load"); }
  void setCaption(std::string_view text) override { caption = text; }
  void show() override { log_.emplace_back("frmMain show"); }
  void unload() override { log_.emplace_back("frmMain unload"); }
  bool isLoaded() const override { return loaded; }
  void basUpdateProfileObjects(std::string_view profileName) override {
    log_.push_back("frmMain basUpdateProfileObjects " + std::string(profileName));
  }
  void basUpdateStatusBar() override { log_.emplace_back("frmMain basUpdateStatusBar"); }

 private:
  WindowLog& log_;
};

// Measures each character as one and the same width, with margins around the text.
class CharacterRuler : public TextRuler {
 public:
  explicit CharacterRuler(std::int32_t unit = 1, std::int32_t margins = 0)
      : unit_(unit), margins_(margins) {}
  std::int32_t width(std::string_view text) const override {
    return margins_ + unit_ * static_cast<std::int32_t>(text.size());
  }

 private:
  std::int32_t unit_;
  std::int32_t margins_;
};

class ScriptedScanStatusWindow : public ScanStatusWindow {
 public:
  explicit ScriptedScanStatusWindow(WindowLog& log) : log_(log) {}

  bool isMinimised = false;
  int fileWidth = 1000;
  int statusBarUpdates = 0;
  int refreshes = 0;
  std::string caption;
  std::string tag;
  std::vector<std::string> statusTexts;       // All that labScanStatus has shown.
  std::map<std::string, std::string> labels;  // What the other labels show now.

  void show() override { log_.emplace_back("frmScanStatus show"); }
  void unload() override { log_.emplace_back("frmScanStatus unload"); }
  void refresh() override { ++refreshes; }
  bool minimised() const override { return isMinimised; }
  void setCaption(std::string_view text) override { caption = text; }
  void setTag(std::string_view text) override { tag = text; }
  void basUpdateStatusBar() override { ++statusBarUpdates; }
  void labScanStatus(std::string_view text) override { statusTexts.emplace_back(text); }
  void labFile1(std::string_view text) override { labels["labFile1"] = text; }
  void labElapsedTime(std::string_view text) override { labels["labElapsedTime"] = text; }
  void labRemainingTime(std::string_view text) override { labels["labRemainingTime"] = text; }
  void labEstimatedTime(std::string_view text) override { labels["labEstimatedTime"] = text; }
  void labBufferReads(std::string_view text) override { labels["labBufferReads"] = text; }
  void labLocalFileReads(std::string_view text) override { labels["labLocalFileReads"] = text; }
  void labRemoteFileReads(std::string_view text) override { labels["labRemoteFileReads"] = text; }
  std::int32_t labFile1Width() const override { return fileWidth; }
  const TextRuler& labSizer() const override { return ruler_; }

 private:
  WindowLog& log_;
  CharacterRuler ruler_;
};

class ScriptedResultsWindow : public ResultsWindow {
 public:
  explicit ScriptedResultsWindow(WindowLog& log) : log_(log) {}

  void show() override { log_.emplace_back("frmResults show"); }
  void unload() override { log_.emplace_back("frmResults unload"); }

 private:
  WindowLog& log_;
};

class ScriptedList : public ListControl {
 public:
  std::vector<std::pair<std::string, std::int16_t>> items;

  void clear() override { items.clear(); }
  void add(std::string_view text, std::int16_t data) override { items.emplace_back(text, data); }
  std::int16_t count() const override { return static_cast<std::int16_t>(items.size()); }
  std::int16_t data(std::int16_t position) const override {
    return items.at(static_cast<std::size_t>(position)).second;
  }
};

class ScriptedFrame : public FrameControl {
 public:
  bool visible = false;
  void setVisible(bool shown) override { visible = shown; }
};

class ScriptedOption : public OptionControl {
 public:
  bool enabled = false;
  bool selected = false;
  void setEnabled(bool can) override { enabled = can; }
  void select() override { selected = true; }
};

template <class Interface>
class ScriptedTagged : public Interface {
 public:
  std::string text;  // The tag.
  std::string tag() const override { return text; }
  void setTag(std::string_view tag) override { text = tag; }
};

// Keeps all the texts that were put into it.
class ScriptedTextBox : public TextControl {
 public:
  std::vector<std::string> texts;
  void setText(std::string_view text) override { texts.emplace_back(text); }
};

}  // namespace quernstoke
