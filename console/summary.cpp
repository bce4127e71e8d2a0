#include "console/summary.h"

#include <array>
#include <cstdio>

namespace quernstoke {

namespace {

const char* introduction(Summary::Outcome outcome) {
  switch (outcome) {
    case Summary::Outcome::finished:
      return "";
    case Summary::Outcome::paused:
      return "Paused, --continue takes the scan up: ";
    case Summary::Outcome::aborted:
      return "Aborted: ";
    case Summary::Outcome::failed:
      return "Failed, the results are incomplete: ";
  }
  return "";
}

std::string counted(std::int64_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string inTenths(double seconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.1f", seconds);
  return text.data();
}

}  // namespace

std::string summaryLine(const Summary& summary) {
  const PassedOver& passed = summary.passedOver;
  return introduction(summary.outcome) + counted(summary.files, "file", "files") + ", " +
         counted(summary.duplicates, "duplicate", "duplicates") + ", " + inTenths(summary.seconds) +
         " seconds; passed over: " + std::to_string(passed.tooLarge) + " too large, " +
         std::to_string(passed.unreadable) + " unreadable, " +
         counted(passed.links, "link", "links") + ", " +
         counted(passed.specials, "special file", "special files");
}

}  // namespace quernstoke
