#include "export/resultsRows.h"

#include <optional>

#include "catalogue/fileTable.h"
#include "core/text.h"
#include "platform/locale.h"
#include "platform/platform.h"
#include "results/matchGroupIndex.h"
#include "results/resultsGrid.h"

namespace quernstoke {

namespace {

class RowWriter {
 public:
  RowWriter(const ResultsLayout& layout, const FileNaming& naming, std::string_view tail,
            const TextSink& write)
      : layout_(layout), naming_(naming), tail_(tail), write_(write) {}

  void titles() {
    if (layout_.format == ResultsFormat::html) return;
    if (layout_.useBlockMarkers) line_ += "Marker,";
    if (layout_.numberBlocks) line_ += "Block#,";
    line_ += "Name,Directory,Date,Size";
    endLine();
  }

  void block(Int32 number) {
    const MatchGroup group = MatchGroupTable[number];
    for (Int32 file = group.first; file < group.first + group.count; ++file) {
      if (file == group.first) colour_ = colourOfBlock(blockKey(file), colour_);
      layout_.format == ResultsFormat::html ? htmlLine(file) : csvLine(number, file);
      endLine();
    }
  }

 private:
  void htmlLine(Int32 file) {
    line_ += "<tr>";
    cell(naming_.name(file));
    cell(naming_.directory(file));
    cell(userLocale().shortDate(FileTable.FileDate[file]));
    cell(grouped(FileTable.FileSize[file].raw()));
    line_ += "</tr>";
    if (file == FileCount) line_ += tail_;
  }

  void cell(std::string_view text) {
    line_ += isFirstColour() ? "<td class=\"colour1\">" : "<td class=\"colour2\">";
    line_.append(text).append("</td>");
  }

  void csvLine(Int32 number, Int32 file) {
    if (layout_.useBlockMarkers) quoted(layout_.blockMarkers[isFirstColour() ? 0 : 1]);
    if (layout_.numberBlocks) line_.append(toText(number)).append(",");
    quoted(naming_.name(file));
    quoted(naming_.directory(file));
    line_.append(userLocale().shortDate(FileTable.FileDate[file])).append(",");
    line_ += toText(FileTable.FileSize[file]);
  }

  bool isFirstColour() const { return colour_ == BlockColour::first; }

  void quoted(std::string_view text) { line_.append("\"").append(text).append("\","); }

  void endLine() {
    line_ += "\r\n";
    write_(line_);
    line_.clear();
  }

  const ResultsLayout& layout_;
  const FileNaming& naming_;
  std::string_view tail_;
  const TextSink& write_;
  std::string line_;
  std::optional<BlockColour> colour_;
};

}  // namespace

FileNaming programNaming() {
  return {[](Int32 file) { return std::string(FileTable.FileName[file]); },
          basGetDirnameFromFilenum};
}

void writeResultsRows(const ResultsLayout& layout, const FileNaming& naming, std::string_view tail,
                      const TextSink& write) {
  RowWriter rows(layout, naming, tail, write);
  rows.titles();
  if (FileCount == 0) return;  // The groups are still those of an earlier list.
  for (Int32 number = 0; number <= MatchGroupTable.upperBound(); ++number)
    rows.block(number);
}

}  // namespace quernstoke
