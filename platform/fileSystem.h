#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/dateTime.h"

namespace quernstoke {

// Bits of a file's attributes, and of the mask of an enumeration. The other bits of a mask are
// filters: an entry with the hidden or system bit is given out only when the mask holds that bit,
// a directory only when the mask holds the directory bit.
enum Attribute : int {
  attributeReadOnly = 1,
  attributeHidden = 2,
  attributeSystem = 4,
  attributeDirectory = 16,
  attributeArchive = 32,
};

// The entries of one directory, in the directory's own order, "." and ".." included. Symbolic
// links and whatever is neither file nor directory are never among them.
class DirectoryListing {
 public:
  virtual ~DirectoryListing() = default;

  // Moves to the next entry; false when there is none left.
  virtual bool next() = 0;

  // Facts of the current entry. The name is valid until the next call of next().
  virtual std::string_view name() const = 0;
  // Never fails; doesn't look at a plain file whose type its directory tells.
  virtual bool isDirectory() const = 0;
  virtual int attributes() = 0;     // Fails for an entry that has gone away.
  virtual std::int32_t size() = 0;  // In bytes. Fails for 2 GiB and more: no 32-bit size.
  virtual DateTime modified() = 0;  // Fails for an entry that has gone away.
};

enum class OpenMode {
  input,         // Sequential reading of an existing file.
  output,        // Sequential writing; an existing file is cut to nothing.
  binary,        // Reading and writing; the file is made if it is missing, and never cut.
  sharedBinary,  // Reading of an existing regular file itself, never of what a link points to.
  update,        // Reading and writing of an existing regular file, not through a link either.
};

// A regular file as a walk from `root`, with which the path begins, has come upon it.
struct WalkedFile {
  std::string_view path;
  std::string_view root;
  std::int32_t size = 0;
  DateTime modified;
};

// A regular file as a look has seen it. Two looks that are equal saw one file, and nothing was done
// to it between them, as far as the disk can tell.
struct SeenFile {
  std::int64_t size = 0;
  DateTime modified;
  // What these hold is the disk's own affair.
  std::array<std::int64_t, 2> identity{};  // Which file it is.
  std::array<std::int64_t, 4> changes{};   // When it was changed, as finely as is known.

  friend bool operator==(const SeenFile&, const SeenFile&) = default;
};

// A file and its copy, as they were when the copy was complete.
struct WalkedCopy {
  SeenFile original;
  SeenFile copy;
};

// An open file: 1 upward. 0 stands for "none" and is never given out.
using FileNumber = std::int16_t;

// The one door to the disk. Paths are the program's: drive letter and backslashes. Every call but
// canEnter fails with a Failure that tells why: file not found for a file that isn't there, path
// not found for a directory, be it only on the way to the file.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual std::unique_ptr<DirectoryListing> list(std::string_view directory, int mask) = 0;
  // Whether the path can be made the current directory; the current one is the same afterwards.
  virtual bool canEnter(std::string_view directory) = 0;
  // The last component only. A path/file access error says that the path exists, and only that.
  virtual void makeDirectory(std::string_view path) = 0;
  virtual void removeDirectory(std::string_view path) = 0;  // An empty one only.

  virtual int attributes(std::string_view path) = 0;
  // Takes the read-only bit off a file or directory; the other bits are not ours to set.
  virtual void clearAttributes(std::string_view path) = 0;
  virtual std::int32_t length(std::string_view path) = 0;
  virtual DateTime modified(std::string_view path) = 0;
  // Removes a file, or a link itself; no directory, and no file with the read-only bit.
  virtual void remove(std::string_view path) = 0;
  // The last component as the disk spells it: as it is written or, failing that, the first name
  // there that differs in letter case only.
  virtual std::string nameOnDisk(std::string_view path) = 0;

  // Files that a walk has come upon. Behind the root the names are taken as they are written and
  // lead through no link: what else stands there now, be it under another letter case, counts as
  // not there.

  virtual SeenFile lookWalked(std::string_view path, std::string_view root) = 0;
  // Removes it, also with the read-only bit. A file of another size or date has changed.
  virtual void removeWalked(const WalkedFile& file) = 0;
  // The same. A file that isn't as it was seen, or another one in its place, has changed.
  virtual void removeSeen(std::string_view path, std::string_view root, const SeenFile& before) = 0;
  // Copies it to a path at which there is nothing, in any letter case, with its date and its
  // permissions as far as the disk there keeps them. When it returns, the copy has reached the
  // disk, and so have the directories on the way to it, as far up as they are of that disk; when it
  // fails, nothing is left at that path. A file that changes meanwhile has changed.
  virtual WalkedCopy copyWalked(std::string_view path, std::string_view root,
                                std::string_view to) = 0;
  // Whether two paths lead to one and the same name of a file, as they do when a directory is
  // mounted twice or reached by a link. Hard links are names of their own: with more than one, the
  // paths count as different. So they do if either leads nowhere; fails where that can't be told.
  virtual bool isSameFile(std::string_view path, std::string_view other) = 0;

  virtual void rename(std::string_view from, std::string_view to) = 0;  // Never over a file.

  // Positions count bytes from 0. Reading and writing move the file's position on.
  // A file with the read-only bit is opened for reading alone.
  virtual FileNumber open(std::string_view path, OpenMode mode) = 0;
  // Fills as much of `into` as the file has from its position on, and returns that length. At or
  // past the end this is 0, and no failure.
  virtual std::size_t read(FileNumber file, std::span<char> into) = 0;
  virtual void write(FileNumber file, std::string_view bytes) = 0;
  virtual void seek(FileNumber file, std::int64_t position) = 0;  // Fails below 0.
  virtual std::int64_t openLength(FileNumber file) = 0;
  // Whether a read has tried to pass the end.
  virtual bool atEnd(FileNumber file) = 0;
  virtual void close(FileNumber file) = 0;
};

}  // namespace quernstoke
