#include "platform/linux/userDirectories.h"

#include <fstream>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/environment.h"

namespace quernstoke {

namespace {

bool isDirectory(const std::string& path) {
  struct stat facts;
  return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

// The text between double quotes, without the backslashes that protect single characters.
std::string unquoted(std::string_view text) {
  std::string result;
  if (!text.starts_with('"')) return result;
  for (std::size_t i = 1; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) ++i;
    result += text[i];
  }
  return result;
}

// The file's values are absolute paths or start with $HOME/; any other is void.
std::string withHome(const std::string& value, const std::string& home) {
  constexpr std::string_view variable = "$HOME";
  if (value.starts_with('/')) return value;
  if (value == variable || value.starts_with("$HOME/")) return home + value.substr(variable.size());
  return {};
}

std::string chosenDocuments(const std::string& home) {
  constexpr std::string_view key = "XDG_DOCUMENTS_DIR=";
  std::string config = environmentVariable("XDG_CONFIG_HOME").value_or("");
  if (!config.starts_with('/')) config = home + "/.config";
  std::ifstream file(config + "/user-dirs.dirs");
  std::string chosen;
  for (std::string line; std::getline(file, line);)
    if (line.starts_with(key))
      chosen = withHome(unquoted(std::string_view(line).substr(key.size())), home);
  return chosen;
}

}  // namespace

std::optional<std::string> documentsDirectory() {
  const std::string home = environmentVariable("HOME").value_or("");
  if (!home.starts_with('/')) return std::nullopt;
  for (const std::string& candidate : {chosenDocuments(home), home + "/Documents"})
    if (isDirectory(candidate)) return candidate;
  return home;
}

}  // namespace quernstoke
