#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/dateTime.h"
#include "testing/saboteur.h"

namespace quernstoke::sabotage {

// A file as it stands on the disk.
struct StoredFile {
  std::string content;
  DateTime modified;
  int attributes = attributeArchive;

  friend bool operator==(const StoredFile&, const StoredFile&) = default;
};

using Files = std::map<std::string, StoredFile>;
using Directories = std::set<std::string>;

struct Tree {
  Files files;
  Directories directories;
};

constexpr int blockInPlace = 5000;  // More than is read to tell two files apart.

extern const std::string zipPath;  // The one archive.
// Contents of more than four blocks; the second differs from the first in its last byte.
extern const std::string equal20;
extern const std::string near20;

// The tree that a scan begins with.
Tree userTreeFor(const Case& given);

// Entries that fill the rows that a catalogue has to begin with: of no length, so that they match
// unread, and of names that come before those of the tree.
std::vector<ScriptedEntry> thousandEntries();

}  // namespace quernstoke::sabotage
