#include "console/reportPage.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "console/homeDirectory.h"
#include "console/output.h"
#include "export/pageTemplate.h"
#include "platform/linux/process.h"

namespace quernstoke {

namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) failAt(path, "not a regular file");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) failAt(path, errno);
  std::string content;
  std::array<char, std::size_t{64} * 1024> piece;
  do {
    stream.read(piece.data(), piece.size());
    content.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
  } while (stream);
  if (stream.bad()) failAt(path, "can't be read to its end");
  return content;
}

PageTemplate pageOf(const std::filesystem::path& path) {
  PageTemplate page = splitPageTemplate(contentOf(path));
  if (!page.hasMarker) failAt(path, "has no " + std::string(pageTemplateMarker));
  return page;
}

}  // namespace

PageTemplate reportPage(const std::optional<std::string>& home) {
  for (const std::filesystem::path directory : {homeChosen(home), executableDirectory()}) {
    const std::filesystem::path path = directory / pageTemplateName;
    std::error_code error;
    if (std::filesystem::exists(path, error)) return pageOf(path);
  }
  return splitPageTemplate(builtInPage);
}

}  // namespace quernstoke
