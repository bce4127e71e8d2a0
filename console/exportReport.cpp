#include "console/exportReport.h"

#include <string>
#include <string_view>

#include "console/machinePaths.h"
#include "console/output.h"
#include "export/pageTemplate.h"
#include "export/resultsRows.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

std::string csvText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '"') escaped += '"';
    escaped += c;
  }
  return escaped;
}

std::string htmlText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else if (c == '&')
      escaped += "&amp;";
    else
      escaped += c;
  }
  return escaped;
}

template <class Escape>
FileNaming machineNaming(MachinePaths& paths, Escape escape) {
  return {[&paths, escape](Int32 file) { return escape(paths.name(file)); },
          [&paths, escape](Int32 file) { return escape(paths.directory(file)); }};
}

ResultsLayout layoutOf(ResultsFormat format) {
  return {format,
          GlobalSettings.ResultsBlockMarkers,
          {csvText(GlobalSettings.ResultsBlockIndicator[1]),
           csvText(GlobalSettings.ResultsBlockIndicator[2])},
          GlobalSettings.ResultsNumberEachBlock};
}

TextSink sinkOf(Output& output) {
  return [&output](std::string_view text) { output.write(text); };
}

}  // namespace

void writeCsvReport(MachinePaths& paths, Output& output) {
  writeResultsRows(layoutOf(ResultsFormat::csv), machineNaming(paths, csvText), {}, sinkOf(output));
}

void writeHtmlReport(const PageTemplate& page, MachinePaths& paths, Output& output) {
  output.write(page.head);
  writeResultsRows(layoutOf(ResultsFormat::html), machineNaming(paths, htmlText), page.tail,
                   sinkOf(output));
  output.write(page.rest);
}

}  // namespace quernstoke
