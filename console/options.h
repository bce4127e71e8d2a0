#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quernstoke {

// A limit as the settings of a profile keep it.
struct SizeLimit {
  std::int32_t number = 0;
  std::string measure;  // "B", "KB", "MB" or "GB".
};

// What a scan of directories looks at. The defaults are those of a new profile, but for the
// minimum, which leaves out only empty files.
struct DirectoryScan {
  std::vector<std::string> directories;  // As given, and the excluded ones too.
  std::vector<std::string> excludes;
  std::string match = "C";  // Any of the letters N, C and S.
  std::int16_t percent = 100;
  SizeLimit minimum{1, "B"};
  SizeLimit maximum{2, "GB"};
  std::string types = "*.*";  // As the settings of a profile keep them.
  bool zip = false;
  bool hidden = false;
  bool system = false;
};

enum class ReportFormat { text, csv, html };

struct Options {
  enum class Task { scanDirectories, runProfile, showHelp, showVersion };

  Task task = Task::scanDirectories;
  DirectoryScan scan;
  std::string profile;
  bool continues = false;
  std::optional<std::string> home;
  ReportFormat format = ReportFormat::text;
  std::optional<std::string> output;  // Standard output unless set.
  bool quiet = false;
};

// Reads the command line, whose words it may put in another order. Throws a ScanError for wrong
// arguments.
Options parseOptions(int argc, char* argv[]);

}  // namespace quernstoke
