#include "export/resultsFile.h"

#include <new>
#include <string>
#include <utility>
#include <vector>

#include "core/modMain.h"
#include "core/procedure.h"
#include "core/text.h"
#include "export/pageTemplate.h"
#include "export/resultsRows.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

constexpr std::size_t pieceSize = std::size_t{64} * 1024;

// A file that is open until it goes out of sight.
class TextFile {
 public:
  TextFile() = default;
  ~TextFile() {
    if (number_ != 0) ignoringFailure([this] { files().close(number_); });
  }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;

  void open(std::string_view path, OpenMode mode) { number_ = files().open(path, mode); }

  std::string readAll() {
    std::string text;
    std::vector<char> piece(pieceSize);
    for (std::size_t length = piece.size(); length == piece.size();) {
      length = files().read(number_, piece);
      text.append(piece.data(), length);
    }
    return text;
  }

  void write(std::string_view text) {
    kept_ += text;
    if (kept_.size() >= pieceSize) flush();
  }
  // The file is complete only when this has not failed.
  void finish() {
    flush();
    files().close(std::exchange(number_, FileNumber{0}));
  }

 private:
  void flush() {
    files().write(number_, kept_);
    kept_.clear();
  }

  FileNumber number_ = 0;
  std::string kept_;
};

void tell(std::string_view text) {
  dialogs().messageBox(text);
}

// Runs steps that return whether all went well; a failure is told behind these words.
template <class Steps>
bool tellingFailure(const std::string& words, Steps steps) {
  try {
    return steps();
  } catch (const Failure& failure) {
    tell(words + failure.description);
  } catch (const std::bad_alloc&) {
    tell(words + Failure(FailureNumber::outOfMemory).description);
  }
  return false;
}

std::string templatePath() {
  return AppPath + "\\" + std::string(pageTemplateName);
}

// The template may be named in other letters, in another spelling of its directory or by a link.
bool isTemplate(const std::string& path) {
  return equalIgnoringCase(path, templatePath()) || files().isSameFile(path, templatePath());
}

bool openTemplate(TextFile& file) {
  const std::string path = templatePath();
  if (ignoringFailure([&] { file.open(path, OpenMode::input); }) == 0) return true;
  tell("Can't find template results file '" + path + "'");
  return false;
}

void writeRows(const ResultsLayout& layout, std::string_view tail, TextFile& output) {
  writeResultsRows(layout, programNaming(), tail,
                   [&](std::string_view text) { output.write(text); });
}

bool writePage(const ResultsLayout& layout, TextFile& output) {
  TextFile file;
  if (!openTemplate(file)) return false;
  const PageTemplate page = splitPageTemplate(file.readAll());
  output.write(page.head);
  if (page.hasMarker) {
    writeRows(layout, page.tail, output);
    output.write(page.rest);
  }
  output.finish();
  if (!page.hasMarker)
    tell("Can not find insert market in template file '" + std::string(pageTemplateName) +
         "'. Text '" + std::string(pageTemplateMarker) + "' missing");
  return page.hasMarker;
}

bool writeTable(const ResultsLayout& layout, TextFile& output) {
  writeRows(layout, {}, output);
  output.finish();
  return true;
}

}  // namespace

bool basWriteResultsFile(std::string_view directory, std::string_view fileName,
                         const ResultsLayout& layout) {
  TextFile output;
  const auto open = [&] {
    const std::string path = std::string(directory).append("\\").append(fileName);
    // Opened for writing it would be empty before it is read.
    if (isTemplate(path)) fail(FailureNumber::pathFileAccess);
    output.open(path, OpenMode::output);
    return true;
  };
  const auto write = [&] {
    return layout.format == ResultsFormat::html ? writePage(layout, output)
                                                : writeTable(layout, output);
  };
  return tellingFailure("Error creating results file. Reason: ", open) &&
         tellingFailure("Error outputting results data. Reason: ", write);
}

}  // namespace quernstoke
