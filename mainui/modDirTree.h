#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"

namespace quernstoke {

class TreeModel;
struct TreeNode;

// A tree of the directories of a drive, for a person to pick one. The key of a node is its path,
// its tag says "E" once sub-directories were read into it. Nodes are read two levels ahead of what
// is open, so that only a directory that can be opened has a mark to open it; what lies deeper
// isn't read. What isn't needed for the path itself is read when the tree's screen is idle, for
// there may be very many directories, or a slow disk.

// Fills an empty tree for the drive with which the text of the drive box begins, and opens it along
// a path as far as that leads.
void basLoadDirList(TreeModel& treeDir, std::string_view drvDrive, std::string_view selectedDir);

// Reads the directory of a node, if it has no children yet, and those below it, two levels less
// `level` further down. A directory that can't be read is empty.
void basLoadTreeNode(TreeModel& treeDir, const std::string& path, Int16 level, TreeNode& node);

// The drive with which the text of a drive box begins: letter and colon.
std::string driveOf(std::string_view drvDrive);

// The files of a directory that fit one of the patterns, which ";" divides, sorted by name. Fails
// if the directory can't be read.
std::vector<std::string> fileListNames(const std::string& path, std::string_view patterns);

}  // namespace quernstoke
