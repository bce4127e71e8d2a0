#include "console/options.h"

#include <array>
#include <getopt.h>
#include <string_view>

#include "console/optionValues.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

enum Id {
  homeId = 256,  // Above all characters, which getopt_long gives back for short options.
  profileId,
  continueId,
  matchId,
  percentId,
  minSizeId,
  maxSizeId,
  typesId,
  excludeId,
  zipId,
  hiddenId,
  systemId,
  formatId,
  outputId,
  quietId,
  versionId,
  helpId,
};

constexpr std::array<option, 18> longOptions = {{
    {"home", required_argument, nullptr, homeId},
    {"profile", required_argument, nullptr, profileId},
    {"continue", no_argument, nullptr, continueId},
    {"match", required_argument, nullptr, matchId},
    {"percent", required_argument, nullptr, percentId},
    {"min-size", required_argument, nullptr, minSizeId},
    {"max-size", required_argument, nullptr, maxSizeId},
    {"types", required_argument, nullptr, typesId},
    {"exclude", required_argument, nullptr, excludeId},
    {"zip", no_argument, nullptr, zipId},
    {"hidden", no_argument, nullptr, hiddenId},
    {"system", no_argument, nullptr, systemId},
    {"format", required_argument, nullptr, formatId},
    {"output", required_argument, nullptr, outputId},
    {"quiet", no_argument, nullptr, quietId},
    {"version", no_argument, nullptr, versionId},
    {"help", no_argument, nullptr, helpId},
    {nullptr, 0, nullptr, 0},
}};

std::string nameOf(int id) {
  for (const option& known : longOptions)
    if (known.val == id) return std::string("--") + known.name;
  return std::string("-") + static_cast<char>(id);
}

bool takeScanOption(int id, DirectoryScan& scan) {
  const auto value = [] { return std::string_view(optarg); };
  switch (id) {
    case matchId:
      scan.match = matchLetters(value());
      return true;
    case percentId:
      scan.percent = matchPercent(value());
      return true;
    case minSizeId:
      scan.minimum = sizeLimit(value());
      return true;
    case maxSizeId:
      scan.maximum = sizeLimit(value());
      return true;
    case typesId:
      scan.types = typeList(value());
      return true;
    case excludeId:
      scan.excludes.emplace_back(value());
      return true;
    case zipId:
      return scan.zip = true;
    case hiddenId:
      return scan.hidden = true;
    case systemId:
      return scan.system = true;
    default:
      return false;
  }
}

std::string filledValue(int id) {
  if (*optarg == '\0') refuse(nameOf(id) + " needs a value that isn't empty");
  return optarg;
}

bool takeCommonOption(int id, Options& options) {
  switch (id) {
    case homeId:
      options.home = filledValue(id);
      return true;
    case profileId:
      options.task = Options::Task::runProfile;
      options.profile = profileName(filledValue(id));
      return true;
    case continueId:
      return options.continues = true;
    case formatId:
      options.format = reportFormat(optarg);
      return true;
    case outputId:
      options.output = filledValue(id);
      return true;
    case quietId:
      return options.quiet = true;
    default:
      return false;
  }
}

// `id` is what getopt_long gives for an option that it can't take.
[[noreturn]] void refuseOption(int id, char* argv[]) {
  const std::string word = argv[optind - 1];
  if (id == ':') refuse(word + " needs a value");
  if (optopt >= homeId) refuse(nameOf(optopt) + " takes no value");
  if (optopt != 0) refuse("unknown option " + nameOf(optopt) + "; --help tells them all");
  refuse("unknown option " + word + "; --help tells them all");
}

void requireDirectories(const DirectoryScan& scan, bool continues) {
  if (continues) refuse("--continue needs --profile");
  if (scan.directories.empty()) refuse("name a directory, or a profile with --profile");
  // The engine needs an empty slot behind the last one.
  constexpr std::size_t mostDirectories = lastDirSlot - 1;
  if (scan.directories.size() + scan.excludes.size() > mostDirectories)
    refuse("at most " + std::to_string(mostDirectories) +
           " directories can be named, excluded ones included");
  if (bytesOf(scan.minimum) > bytesOf(scan.maximum)) refuse("--min-size is above --max-size");
}

}  // namespace

Options parseOptions(int argc, char* argv[]) {
  Options options;
  std::string scanOption;  // The last one seen.
  optind = 0;              // Begins anew, with the order of words that the environment asks for.
  opterr = 0;
  for (;;) {
    optopt = 0;
    const int id = getopt_long(argc, argv, ":", longOptions.data(), nullptr);
    if (id == -1) break;
    if (id == helpId || id == versionId) {
      options.task = id == helpId ? Options::Task::showHelp : Options::Task::showVersion;
      return options;
    }
    if (takeScanOption(id, options.scan))
      scanOption = nameOf(id);
    else if (!takeCommonOption(id, options))
      refuseOption(id, argv);
  }
  options.scan.directories.assign(argv + optind, argv + argc);
  if (options.task != Options::Task::runProfile) {
    requireDirectories(options.scan, options.continues);
  } else {
    if (!scanOption.empty()) refuse(scanOption + " can't be combined with --profile");
    if (!options.scan.directories.empty()) refuse("directories can't be combined with --profile");
  }
  return options;
}

}  // namespace quernstoke
