#include "console/scanPlan.h"

#include <optional>
#include <string_view>

#include "console/homeDirectory.h"

namespace quernstoke {

namespace {

struct Include {
  std::string asGiven;
  std::string path;
};

// The way down from one directory to another, or nothing when there is none.
std::optional<std::string_view> wayDown(std::string_view from, std::string_view to) {
  if (from == "/") from = "";
  if (!to.starts_with(from)) return std::nullopt;
  const std::string_view way = to.substr(from.size());
  if (!way.empty() && way.front() != '/') return std::nullopt;
  return way;
}

// Whether the walk of one directory comes to another: hidden ones on the way end it.
bool walkReaches(std::string_view from, std::string_view to, bool hidden) {
  const auto way = wayDown(from, to);
  return way && (hidden || way->find("/.") == std::string_view::npos);
}

std::vector<Include> existingIncludes(const std::vector<std::string>& directories) {
  std::vector<Include> includes;
  includes.reserve(directories.size());
  for (const std::string& directory : directories)
    includes.push_back({directory, existingDirectory(directory)});
  return includes;
}

// The remark on why an include is left out; empty if it isn't.
std::string reasonToDrop(std::size_t index, const std::vector<Include>& includes,
                         const ScanPlan& plan, bool hidden) {
  const std::string& path = includes[index].path;
  for (const std::string& exclude : plan.excludes)
    if (wayDown(exclude, path)) return "it is excluded by '" + exclude + "'";
  for (std::size_t i = 0; i < includes.size(); ++i) {
    const Include& other = includes[i];
    const bool isLater = i >= index;
    if ((other.path == path && isLater) || !walkReaches(other.path, path, hidden)) continue;
    return "it is in '" + other.asGiven + "' already";
  }
  return {};
}

}  // namespace

ScanPlan planScan(const DirectoryScan& scan) {
  ScanPlan plan;
  const std::vector<Include> includes = existingIncludes(scan.directories);
  for (const std::string& directory : scan.excludes)
    plan.excludes.push_back(existingDirectory(directory));
  for (std::size_t i = 0; i < includes.size(); ++i) {
    const std::string reason = reasonToDrop(i, includes, plan, scan.hidden);
    if (reason.empty())
      plan.includes.push_back(includes[i].path);
    else
      plan.remarks.push_back("'" + includes[i].asGiven + "' is left out: " + reason);
  }
  return plan;
}

}  // namespace quernstoke
