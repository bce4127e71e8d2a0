#include "console/reportPage.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "console/exitStatus.h"
#include "console/homeDirectory.h"
#include "export/pageTemplate.h"
#include "platform/linux/process.h"

namespace quernstoke {

namespace {

[[noreturn]] void refuse(const std::filesystem::path& path, const std::string& reason) {
  throw ScanError(ExitStatus::failed, path.native() + ": " + reason);
}

std::string contentOf(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) refuse(path, "not a regular file");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) refuse(path, std::strerror(errno));
  std::string content;
  std::array<char, std::size_t{64} * 1024> piece;
  do {
    stream.read(piece.data(), piece.size());
    content.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
  } while (stream);
  if (stream.bad()) refuse(path, "can't be read to its end");
  return content;
}

PageTemplate pageOf(const std::filesystem::path& path) {
  PageTemplate page = splitPageTemplate(contentOf(path));
  if (!page.hasMarker) refuse(path, "has no " + std::string(pageTemplateMarker));
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
