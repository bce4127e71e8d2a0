#include "testing/sabotagedTree.h"

#include <cstddef>

namespace quernstoke::sabotage {

const std::string zipPath = "C:\\Data\\z.zip";
const std::string equal20 = "aaaabbbbccccddddeeee";
const std::string near20 = "aaaabbbbccccddddeeef";

namespace {

std::string longContent(std::size_t length, std::size_t differsAt) {
  std::string content;
  while (content.size() < length)
    content += std::to_string(content.size()) + ' ';
  content.resize(length);
  if (differsAt < length) content[differsAt] = '#';
  return content;
}

// Long files of two lengths, three blocks and less than one. Of each three are equal and the others
// differ from them in a place that is read at once, or later, or in the last block.
Files longFiles() {
  constexpr std::size_t blocks = std::size_t{3} * blockInPlace;
  constexpr std::size_t part = blockInPlace - 100;
  constexpr std::size_t readLater = part - 100;
  Files files;
  const auto add = [&](const std::string& name, std::size_t length, std::size_t differsAt) {
    files["C:\\Data\\long\\" + name] = {longContent(length, differsAt), {}};
  };
  for (const char* name : {"equal 1", "equal 2", "equal 3"}) {
    add(name, blocks, blocks);
    add("part " + std::string(name), part, part);
  }
  add("at once", blocks, 0);
  add("at once too", blocks, 1);
  add("later", blocks, readLater);
  add("last block", blocks, blocks - 10);
  // One of these is compared first, so that all beginnings are known before two are alike.
  add("a part at once", part, 0);
  add("part at once", part, 1);
  add("z part at once", part, 2);
  add("part later", part, readLater);
  add("part later too", part, readLater + 1);
  return files;
}

// A tree that takes a scan through the pool, local copies and an archive, and files that it has
// nothing to do with, one of which has the name of an archive's entry.
Tree makeUserTree() {
  constexpr int readOnly = attributeArchive | attributeReadOnly;
  const DateTime old = dateTime({1999, 12, 31, 23, 59, 58});
  const DateTime older = dateTime({1980, 1, 1, 0, 0, 0});
  return {
      {
          {"C:\\Data\\a\\same", {equal20, old}},
          {"C:\\Data\\a\\near", {near20, old}},
          {"C:\\Data\\b\\same", {equal20, older, readOnly}},
          {"C:\\Data\\c\\same", {equal20, old}},
          {"C:\\Data\\c\\copy of near", {near20, older}},
          {"C:\\Data\\a\\pair", {"12345678", old, readOnly}},
          {"C:\\Data\\b\\pair", {"12345678", old}},
          {"C:\\Data\\b\\lone", {"1", old}},
          {"C:\\Data\\a\\between", {"in between 1", old}},
          {"C:\\Data\\c\\between", {"in between 2", old}},
          {zipPath, {"an archive", old}},
          {"C:\\Other\\same", {equal20, old, readOnly}},
          {tempPath + "same", {"a person's own", older}},
          {tempPath + "notes.txt", {"as well", old, readOnly}},
      },
      {"C:\\Data", "C:\\Data\\a", "C:\\Data\\b", "C:\\Data\\c", "C:\\Data\\empty", "C:\\Other",
       tempPath + "album", tempPath + "album\\near"},
  };
}

}  // namespace

Tree userTreeFor(const Case& given) {
  Tree tree = makeUserTree();
  if (given.way == Way::inPlace) {
    tree.files.merge(longFiles());
    tree.directories.insert("C:\\Data\\long");
  }
  // A scan goes on with the wrong files of the group behind its pause, and is itself after that.
  if (given.way == Way::names)
    for (const char* directory : {"C:\\Data\\a\\", "C:\\Data\\b\\", "C:\\Data\\c\\"}) {
      tree.files[std::string(directory) + "tail 1"] = {near20 + "+", {}};
      tree.files[std::string(directory) + "tail 2"] = {near20 + "++", {}};
    }
  if (given.scan == Scan::first) {
    std::erase_if(tree.files, [](const auto& file) { return isInTemp(file.first); });
    std::erase_if(tree.directories, isInTemp);
  }
  return tree;
}

std::vector<ScriptedEntry> thousandEntries() {
  std::vector<ScriptedEntry> entries;
  for (const char* folder : {"one/", "two/"})
    for (int i = 0; i < 500; ++i)
      entries.push_back({folder + ("!" + std::to_string(i)), ""});
  return entries;
}

}  // namespace quernstoke::sabotage
