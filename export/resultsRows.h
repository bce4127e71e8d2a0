#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

enum class ResultsFormat { html, csv };

// What a person chooses of the lines of a results file. Only the format concerns html.
struct ResultsLayout {
  ResultsFormat format = ResultsFormat::html;
  bool useBlockMarkers = true;
  std::array<std::string, 2> blockMarkers;  // Of alternating blocks.
  bool numberBlocks = true;
};

// How lines name a file. What a line can't hold is for the naming to see to.
struct FileNaming {
  std::function<std::string(Int32 file)> name;
  std::function<std::string(Int32 file)> directory;
};

// The program's own names, as the results window shows them.
FileNaming programNaming();

using TextSink = std::function<void(std::string_view)>;

// Writes a line for each file of MatchGroupTable, group by group; for csv a line of titles first.
// For html `tail` stands on the line of the last file of the catalogue, if that is in a group.
void writeResultsRows(const ResultsLayout& layout, const FileNaming& naming, std::string_view tail,
                      const TextSink& write);

}  // namespace quernstoke
