#pragma once

#include <string>
#include <string_view>

namespace quernstoke {

constexpr std::string_view pageTemplateName = "results_template.html";
constexpr std::string_view pageTemplateMarker = "<File_data_inserted_here>";

// What a template gives to a page. Each line is ended by carriage return and line feed.
struct PageTemplate {
  std::string head;  // The lines in front of the results; without a marker, all lines.
  bool hasMarker = false;
  std::string tail;  // What stands behind the marker on its line, up to 9999 characters.
  std::string rest;  // The lines behind the results.
};

// Takes a template apart. Its lines may have the ends of any system.
PageTemplate splitPageTemplate(std::string_view text);

}  // namespace quernstoke
