#include "mainui/modDirTree.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "controls/treeModel.h"
#include "core/helpers.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/dirComponents.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/wildcards.h"

namespace quernstoke {

namespace {

constexpr int lookAhead = 2;
constexpr const char* readTag = "E";

// An entry that can't be looked at is none.
bool isDirectory(DirectoryListing& entry) {
  return entry.isDirectory() && ignoringFailure([&] { entry.attributes(); }) == 0;
}

// None if the directory can't be read to its end.
std::vector<std::string> subDirectories(const std::string& path) {
  std::vector<std::string> names;
  const int failure = ignoringFailure([&] {
    const std::unique_ptr<DirectoryListing> listing = files().list(path, attributeDirectory);
    while (listing->next())
      if (listing->name() != "." && listing->name() != ".." && isDirectory(*listing))
        names.emplace_back(listing->name());
  });
  if (failure != 0) names.clear();
  return names;
}

void addSubDirectories(TreeModel& treeDir, const std::string& path, TreeNode& node) {
  std::vector<TreeNode> added;
  for (std::string& name : subDirectories(path)) {
    TreeNode& child = added.emplace_back();
    child.key = path + "\\" + name;
    child.text = std::move(name);
    child.image = "Close";
  }
  if (added.empty()) return;
  node.tag = readTag;
  treeDir.addChildren(node, std::move(added));
}

TreeNode& expandChild(TreeModel& treeDir, TreeNode& parent, std::string_view name) {
  for (const auto& child : parent.children) {
    if (!equalIgnoringCase(child->text, name)) continue;
    treeDir.expand(*child);
    return *child;
  }
  return parent;
}

// Of names that differ in letter case alone the last stays selected.
void selectChildren(TreeModel& treeDir, const TreeNode& parent, std::string_view name) {
  for (const auto& child : parent.children)
    if (equalIgnoringCase(child->text, name)) treeDir.select(child.get());
}

// A component that isn't there is passed over.
void openAlong(TreeModel& treeDir, TreeNode& root, std::string_view path) {
  TreeNode* current = nullptr;
  eachPathComponent(path, [&](std::string_view component, bool isLast) {
    if (current == nullptr) {
      current = &root;
      if (equalIgnoringCase(component, root.text)) treeDir.expand(root);
    } else if (!isLast) {
      current = &expandChild(treeDir, *current, component);
    } else {
      selectChildren(treeDir, *current, component);
    }
  });
}

std::vector<std::string> patternsIn(std::string_view patterns) {
  std::vector<std::string> found;
  for (Int16 field = 1;; ++field) {
    const std::string pattern = basField(patterns, ";", field);
    if (pattern.empty()) return found;
    found.push_back(lower(pattern));
  }
}

}  // namespace

std::string driveOf(std::string_view drvDrive) {
  return std::string(drvDrive.substr(0, drvDrive.find(':') + 1));
}

void basLoadDirList(TreeModel& treeDir, std::string_view drvDrive, std::string_view selectedDir) {
  procedure("basLoadDirList", [&] {
    TreeNode drive;
    drive.key = drive.text = driveOf(drvDrive);
    drive.image = "Drive";
    TreeNode& root = treeDir.addRoot(std::move(drive));
    basLoadTreeNode(treeDir, root.key, 1, root);
    if (root.children.empty() || selectedDir.empty()) return;
    openAlong(treeDir, root, selectedDir);
  });
}

void basLoadTreeNode(TreeModel& treeDir, const std::string& path, Int16 level, TreeNode& node) {
  procedure("basLoadTreeNode", [&] {
    if (node.children.empty()) addSubDirectories(treeDir, path, node);
    if (level >= lookAhead) return;
    for (const auto& child : node.children)
      treeDir.whenIdle(*child, [&treeDir, &child = *child, level] {
        if (child.children.empty() && child.tag.empty())
          basLoadTreeNode(treeDir, child.key, level + 1, child);
      });
  });
}

std::vector<std::string> fileListNames(const std::string& path, std::string_view patterns) {
  const std::vector<std::string> wanted = patternsIn(patterns);
  std::vector<std::string> names;
  const std::unique_ptr<DirectoryListing> listing =
      files().list(path, attributeReadOnly | attributeArchive);
  while (listing->next()) {
    const std::string name = lower(listing->name());
    if (std::any_of(wanted.begin(), wanted.end(),
                    [&](const std::string& pattern) { return matchesWildcards(name, pattern); }))
      names.emplace_back(listing->name());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quernstoke
