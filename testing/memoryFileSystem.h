#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/failure.h"
#include "platform/fileSystem.h"

namespace quernstoke {

enum class DiskAction {
  list,
  nextEntry,
  entryAttributes,
  entrySize,
  entryDate,
  canEnter,
  makeDirectory,
  removeDirectory,
  attributes,
  clearAttributes,
  length,
  modified,
  look,
  remove,
  copy,
  sameFile,
  nameOnDisk,
  rename,
  open,
  read,
  write,
  seek,
  openLength,
  atEnd,
  close,
};

// One call at the door to the disk.
struct DiskCall {
  DiskAction action;
  std::string path;
  std::int64_t position = 0;        // Of a read, write or seek.
  OpenMode mode = OpenMode::input;  // Of an open.
};

std::string describe(const DiskCall& call);  // In words, for a message of a test.

// A disk in memory, with drive letters and backslashes, that answers as the real one does: names
// are looked up without regard to case, directories keep the order in which entries were made.
// A hook sees each call before it is carried out and may change the disk, or throw a Failure. If it
// breaks a write, a part is written; all else that fails changes nothing.
class MemoryFileSystem : public FileSystem {
 public:
  MemoryFileSystem();
  ~MemoryFileSystem() override;

  // Building and looking at the tree.
  void file(std::string_view path, std::string_view content, DateTime modified = {});
  // A file that has only a length; 2 GiB and more have no 32-bit size.
  void emptyFileOfLength(std::string_view path, std::int64_t length);
  void directory(std::string_view path);  // With all above it.
  void setAttributes(std::string_view path, int attributes);
  // Lets a directory be reached by a drive as well.
  void mountAgain(std::string_view directory, std::string_view drive);
  void erase(std::string_view path);  // A file, or a directory with all in it.
  bool exists(std::string_view path) const;
  std::string content(std::string_view path) const;
  std::vector<std::string> names(std::string_view directory) const;
  // Every file with its content, by path.
  std::map<std::string, std::string> allFiles() const;
  std::set<std::string> allDirectories() const;  // By path, the drives' own left out.
  int openFiles() const;
  std::vector<std::string> openPaths() const;

  // What has been asked of the disk, and what sees it first.
  std::vector<DiskCall> calls;
  std::function<void(const DiskCall&)> before;
  // How many calls of an action had this path.
  int count(DiskAction action, std::string_view path) const;
  // The paths of all calls of an action.
  std::vector<std::string> paths(DiskAction action) const;

  // The n-th call from now with this action, and path unless empty, fails.
  void failOn(DiskAction action, std::string_view path, FailureNumber number, int nth = 1);

  std::optional<std::int64_t> freeBytes;  // Unlimited unless set.
  std::int64_t dateStep = 1;              // The seconds of a copy's date are a multiple of it.

  std::unique_ptr<DirectoryListing> list(std::string_view directory, int mask) override;
  bool canEnter(std::string_view directory) override;
  void makeDirectory(std::string_view path) override;
  void removeDirectory(std::string_view path) override;
  int attributes(std::string_view path) override;
  void clearAttributes(std::string_view path) override;
  std::int32_t length(std::string_view path) override;
  DateTime modified(std::string_view path) override;
  void remove(std::string_view path) override;
  std::string nameOnDisk(std::string_view path) override;
  SeenFile lookWalked(std::string_view path, std::string_view root) override;
  void removeWalked(const WalkedFile& file) override;
  void removeSeen(std::string_view path, std::string_view root, const SeenFile& expected) override;
  WalkedCopy copyWalked(std::string_view path, std::string_view root, std::string_view to) override;
  bool isSameFile(std::string_view path, std::string_view other) override;
  void rename(std::string_view from, std::string_view to) override;
  FileNumber open(std::string_view path, OpenMode mode) override;
  std::size_t read(FileNumber file, std::span<char> into) override;
  void write(FileNumber file, std::string_view bytes) override;
  void seek(FileNumber file, std::int64_t position) override;
  std::int64_t openLength(FileNumber file) override;
  bool atEnd(FileNumber file) override;
  void close(FileNumber file) override;

 private:
  struct Node;
  struct OpenFile;
  class Listing;
  struct PlannedFailure {
    DiskAction action;
    std::string path;
    FailureNumber number;
    int nth;
  };

  void note(DiskAction action, std::string_view path, std::int64_t position = 0,
            OpenMode mode = OpenMode::input);
  void tellHook(const DiskCall& call);
  void failIfPlanned(DiskAction action, std::string_view path);
  std::shared_ptr<Node> find(std::string_view path) const;
  std::shared_ptr<Node> need(std::string_view path, FailureNumber otherwise) const;
  std::shared_ptr<Node> needParent(std::string_view path) const;
  std::shared_ptr<Node> needWalked(std::string_view path, std::string_view root) const;
  static SeenFile seen(const Node& node);
  std::shared_ptr<Node> addFile(std::string_view path);
  void change(Node& node);
  OpenFile& opened(FileNumber file);
  void put(OpenFile& to, std::string_view bytes);
  template <class Visit>
  void eachNode(Visit visit) const;

  std::map<std::string, std::shared_ptr<Node>> drives_;  // By lower-case letter and colon.
  std::map<FileNumber, OpenFile> open_;
  std::vector<PlannedFailure> planned_;
  std::int64_t changes_ = 0;  // A clock for what was done to files.
};

}  // namespace quernstoke
