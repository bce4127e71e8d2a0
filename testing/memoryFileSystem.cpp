#include "testing/memoryFileSystem.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>

namespace quernstoke {

struct MemoryFileSystem::Node {
  std::string name;
  bool isDirectory = false;
  int flags = 0;  // Read-only, hidden and system bits.
  DateTime modified;
  std::string content;
  std::optional<std::int64_t> pretendedLength;
  std::int64_t identity = 0;
  std::int64_t changed = 0;
  std::vector<std::shared_ptr<Node>> children;

  int attributes() const { return flags | (isDirectory ? attributeDirectory : attributeArchive); }
  std::int64_t length() const {
    return pretendedLength.value_or(static_cast<std::int64_t>(content.size()));
  }
  std::int32_t shortLength() const {
    if (length() > INT32_MAX) fail(FailureNumber::overflow);
    return static_cast<std::int32_t>(length());
  }
};

struct MemoryFileSystem::OpenFile {
  std::shared_ptr<Node> node;
  std::string path;
  OpenMode mode;
  std::size_t position = 0;
  bool triedToPassEnd = false;
};

namespace {

std::string folded(std::string_view text) {
  std::string result(text);
  for (char& c : result)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return result;
}

std::vector<std::string> components(std::string_view path) {
  std::vector<std::string> parts(1);
  for (const char c : path) {
    if (c == '\\' || c == '/')
      parts.emplace_back();
    else
      parts.back() += c;
  }
  std::erase(parts, "");
  return parts;
}

std::string parentOf(std::string_view path) {
  while (path.ends_with('\\'))
    path.remove_suffix(1);
  return std::string(path.substr(0, path.find_last_of("\\/")));
}

std::string nameOf(std::string_view path) {
  const std::vector<std::string> parts = components(path);
  return parts.empty() ? "" : parts.back();
}

template <class Nodes>
auto findNamed(Nodes& nodes, const std::string& name) {
  return std::find_if(nodes.begin(), nodes.end(),
                      [&](const auto& node) { return folded(node->name) == folded(name); });
}

}  // namespace

std::string describe(const DiskCall& call) {
  // In the order of DiskAction.
  constexpr const char* actions[] = {"list",
                                     "next entry of",
                                     "attributes of entry",
                                     "size of entry",
                                     "date of entry",
                                     "can enter",
                                     "make directory",
                                     "remove directory",
                                     "attributes of",
                                     "clear attributes of",
                                     "length of",
                                     "date of",
                                     "look at",
                                     "remove",
                                     "copy",
                                     "compare the file of",
                                     "name of",
                                     "rename",
                                     "open",
                                     "read",
                                     "write",
                                     "seek in",
                                     "length of open",
                                     "end of",
                                     "close"};
  static_assert(std::size(actions) == static_cast<std::size_t>(DiskAction::close) + 1);
  return std::string(actions[static_cast<std::size_t>(call.action)]) + " " + call.path +
         (call.position != 0 ? " at " + std::to_string(call.position) : "");
}

// Reads the directory as it is at each step, so that a test can change it in between.
class MemoryFileSystem::Listing : public DirectoryListing {
 public:
  Listing(MemoryFileSystem& disk, std::shared_ptr<Node> directory, std::string path, int mask)
      : disk_(disk), directory_(std::move(directory)), path_(std::move(path)), mask_(mask) {}

  bool next() override {
    disk_.note(DiskAction::nextEntry, path_);
    constexpr std::size_t dotEntries = 2;
    for (;; ++next_) {
      if (next_ < dotEntries) {
        current_ = std::make_shared<Node>();
        current_->name = next_ == 0 ? "." : "..";
        current_->isDirectory = true;
      } else if (next_ - dotEntries < directory_->children.size()) {
        current_ = directory_->children[next_ - dotEntries];
      } else {
        return false;
      }
      if (isHeldBack(*current_)) continue;
      ++next_;
      return true;
    }
  }
  std::string_view name() const override { return current_->name; }
  bool isDirectory() const override { return current_->isDirectory; }
  int attributes() override {
    disk_.note(DiskAction::entryAttributes, entryPath());
    return current_->attributes();
  }
  std::int32_t size() override {
    disk_.note(DiskAction::entrySize, entryPath());
    return current_->shortLength();
  }
  DateTime modified() override {
    disk_.note(DiskAction::entryDate, entryPath());
    return current_->modified;
  }

 private:
  bool isHeldBack(const Node& node) const {
    const int filtered = attributeHidden | attributeSystem | attributeDirectory;
    return (node.attributes() & filtered & ~mask_) != 0;
  }
  std::string entryPath() const { return path_ + "\\" + current_->name; }

  MemoryFileSystem& disk_;
  std::shared_ptr<Node> directory_;
  std::string path_;
  int mask_;
  std::size_t next_ = 0;
  std::shared_ptr<Node> current_;
};

MemoryFileSystem::MemoryFileSystem() {
  directory("C:");
}
MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::note(DiskAction action, std::string_view path, std::int64_t position,
                            OpenMode mode) {
  tellHook({action, std::string(path), position, mode});
  failIfPlanned(action, path);
}

void MemoryFileSystem::tellHook(const DiskCall& call) {
  calls.push_back(call);
  if (before) before(call);
}

void MemoryFileSystem::failIfPlanned(DiskAction action, std::string_view path) {
  for (PlannedFailure& planned : planned_)
    if (planned.action == action && (planned.path.empty() || folded(planned.path) == folded(path)))
      if (--planned.nth == 0) fail(planned.number);
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::find(std::string_view path) const {
  const std::vector<std::string> parts = components(path);
  if (parts.empty()) return nullptr;
  const auto drive = drives_.find(folded(parts.front()));
  if (drive == drives_.end()) return nullptr;
  std::shared_ptr<Node> node = drive->second;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (!node->isDirectory) return nullptr;
    const auto child = findNamed(node->children, parts[i]);
    if (child == node->children.end()) return nullptr;
    node = *child;
  }
  return node;
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::need(std::string_view path,
                                                               FailureNumber otherwise) const {
  auto node = find(path);
  if (node) return node;
  needParent(path);
  fail(otherwise);
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::needParent(std::string_view path) const {
  auto parent = find(parentOf(path));
  if (!parent || !parent->isDirectory) fail(FailureNumber::pathNotFound);
  return parent;
}

void MemoryFileSystem::change(Node& node) {
  node.changed = ++changes_;
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::addFile(std::string_view path) {
  const auto parent = needParent(path);
  auto node = std::make_shared<Node>();
  node->name = nameOf(path);
  node->identity = ++changes_;
  change(*node);
  parent->children.push_back(node);
  return node;
}

void MemoryFileSystem::file(std::string_view path, std::string_view content, DateTime modified) {
  directory(parentOf(path));
  auto node = find(path);
  if (!node) node = addFile(path);
  node->content = content;
  node->modified = modified;
  change(*node);
}

void MemoryFileSystem::emptyFileOfLength(std::string_view path, std::int64_t length) {
  file(path, "");
  const auto node = find(path);
  node->pretendedLength = length;
  change(*node);
}

void MemoryFileSystem::directory(std::string_view path) {
  const std::vector<std::string> parts = components(path);
  std::shared_ptr<Node>& drive = drives_[folded(parts.at(0))];
  if (!drive) {
    drive = std::make_shared<Node>();
    drive->isDirectory = true;
  }
  std::shared_ptr<Node> node = drive;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const auto child = findNamed(node->children, parts[i]);
    if (child != node->children.end()) {
      node = *child;
      continue;
    }
    auto added = std::make_shared<Node>();
    added->name = parts[i];
    added->isDirectory = true;
    node->children.push_back(added);
    node = added;
  }
}

void MemoryFileSystem::setAttributes(std::string_view path, int attributes) {
  const auto node = need(path, FailureNumber::fileNotFound);
  node->flags = attributes & (attributeReadOnly | attributeHidden | attributeSystem);
  change(*node);
}

void MemoryFileSystem::mountAgain(std::string_view directory, std::string_view drive) {
  drives_[folded(drive)] = need(directory, FailureNumber::pathNotFound);
}

void MemoryFileSystem::erase(std::string_view path) {
  const auto node = need(path, FailureNumber::fileNotFound);
  std::erase(needParent(path)->children, node);
}

bool MemoryFileSystem::exists(std::string_view path) const {
  return find(path) != nullptr;
}

std::string MemoryFileSystem::content(std::string_view path) const {
  return need(path, FailureNumber::fileNotFound)->content;
}

std::vector<std::string> MemoryFileSystem::names(std::string_view directory) const {
  std::vector<std::string> result;
  for (const auto& child : need(directory, FailureNumber::pathNotFound)->children)
    result.push_back(child->name);
  return result;
}

// Calls `visit` with each file and directory and its path.
template <class Visit>
void MemoryFileSystem::eachNode(Visit visit) const {
  const std::function<void(const Node&, const std::string&)> visitBelow =
      [&](const Node& directory, const std::string& path) {
        for (const auto& child : directory.children) {
          visit(*child, path + "\\" + child->name);
          visitBelow(*child, path + "\\" + child->name);
        }
      };
  for (const auto& [letter, root] : drives_)
    visitBelow(*root, std::string(1, static_cast<char>(std::toupper(letter[0]))) + ":");
}

std::map<std::string, std::string> MemoryFileSystem::allFiles() const {
  std::map<std::string, std::string> result;
  eachNode([&](const Node& node, const std::string& path) {
    if (!node.isDirectory) result[path] = node.content;
  });
  return result;
}

std::set<std::string> MemoryFileSystem::allDirectories() const {
  std::set<std::string> result;
  eachNode([&](const Node& node, const std::string& path) {
    if (node.isDirectory) result.insert(path);
  });
  return result;
}

int MemoryFileSystem::openFiles() const {
  return static_cast<int>(open_.size());
}

std::vector<std::string> MemoryFileSystem::openPaths() const {
  std::vector<std::string> paths;
  for (const auto& [number, file] : open_)
    paths.push_back(file.path);
  return paths;
}

int MemoryFileSystem::count(DiskAction action, std::string_view path) const {
  return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&](const DiskCall& call) {
    return call.action == action && folded(call.path) == folded(path);
  }));
}

std::vector<std::string> MemoryFileSystem::paths(DiskAction action) const {
  std::vector<std::string> found;
  for (const DiskCall& call : calls)
    if (call.action == action) found.push_back(call.path);
  return found;
}

void MemoryFileSystem::failOn(DiskAction action, std::string_view path, FailureNumber number,
                              int nth) {
  planned_.push_back({action, std::string(path), number, nth});
}

std::unique_ptr<DirectoryListing> MemoryFileSystem::list(std::string_view directory, int mask) {
  note(DiskAction::list, directory);
  auto node = need(directory, FailureNumber::pathNotFound);
  if (!node->isDirectory) fail(FailureNumber::pathNotFound);
  std::string path(directory);
  while (path.ends_with('\\'))
    path.pop_back();
  return std::make_unique<Listing>(*this, std::move(node), std::move(path), mask);
}

bool MemoryFileSystem::canEnter(std::string_view directory) {
  try {
    note(DiskAction::canEnter, directory);
  } catch (const Failure&) {
    return false;  // This call tells of a failure in its answer.
  }
  const auto node = find(directory);
  return node && node->isDirectory;
}

void MemoryFileSystem::makeDirectory(std::string_view path) {
  note(DiskAction::makeDirectory, path);
  needParent(path);
  if (find(path)) fail(FailureNumber::pathFileAccess);
  directory(path);
}

void MemoryFileSystem::removeDirectory(std::string_view path) {
  note(DiskAction::removeDirectory, path);
  const auto node = need(path, FailureNumber::pathNotFound);
  if (!node->isDirectory || !node->children.empty()) fail(FailureNumber::pathFileAccess);
  erase(path);
}

int MemoryFileSystem::attributes(std::string_view path) {
  note(DiskAction::attributes, path);
  return need(path, FailureNumber::fileNotFound)->attributes();
}

void MemoryFileSystem::clearAttributes(std::string_view path) {
  note(DiskAction::clearAttributes, path);
  const auto node = need(path, FailureNumber::fileNotFound);
  node->flags &= ~attributeReadOnly;
  change(*node);
}

std::int32_t MemoryFileSystem::length(std::string_view path) {
  note(DiskAction::length, path);
  return need(path, FailureNumber::fileNotFound)->shortLength();
}

DateTime MemoryFileSystem::modified(std::string_view path) {
  note(DiskAction::modified, path);
  return need(path, FailureNumber::fileNotFound)->modified;
}

void MemoryFileSystem::remove(std::string_view path) {
  note(DiskAction::remove, path);
  const auto node = need(path, FailureNumber::fileNotFound);
  if (node->isDirectory || (node->flags & attributeReadOnly) != 0)
    fail(FailureNumber::pathFileAccess);
  erase(path);
}

// The file that a walk from the root has come upon, by its exact names.
std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::needWalked(std::string_view path,
                                                                     std::string_view root) const {
  std::shared_ptr<Node> node = need(root, FailureNumber::pathNotFound);
  if (!path.starts_with(root) || !path.substr(root.size()).starts_with('\\'))
    fail(FailureNumber::pathNotFound);
  const std::vector<std::string> names = components(path.substr(root.size()));
  if (names.empty()) fail(FailureNumber::fileNotFound);
  for (const std::string& name : names) {
    if (!node->isDirectory) fail(FailureNumber::pathNotFound);
    const auto child = findNamed(node->children, name);
    const bool isLast = &name == &names.back();
    if (child == node->children.end() || (*child)->name != name || (*child)->isDirectory == isLast)
      fail(isLast ? FailureNumber::fileNotFound : FailureNumber::pathNotFound);
    node = *child;
  }
  return node;
}

SeenFile MemoryFileSystem::seen(const Node& node) {
  return {node.length(), node.modified, {node.identity, 0}, {node.changed, 0, 0, 0}};
}

std::string MemoryFileSystem::nameOnDisk(std::string_view path) {
  note(DiskAction::nameOnDisk, path);
  return need(path, FailureNumber::fileNotFound)->name;
}

SeenFile MemoryFileSystem::lookWalked(std::string_view path, std::string_view root) {
  note(DiskAction::look, path);
  return seen(*needWalked(path, root));
}

void MemoryFileSystem::removeWalked(const WalkedFile& file) {
  note(DiskAction::remove, file.path);
  const auto node = needWalked(file.path, file.root);
  if (node->length() != file.size || node->modified != file.modified)
    fail(FailureNumber::fileChanged);
  std::erase(needParent(file.path)->children, node);
}

void MemoryFileSystem::removeSeen(std::string_view path, std::string_view root,
                                  const SeenFile& expected) {
  note(DiskAction::remove, path);
  const auto node = needWalked(path, root);
  if (seen(*node) != expected) fail(FailureNumber::fileChanged);
  std::erase(needParent(path)->children, node);
}

WalkedCopy MemoryFileSystem::copyWalked(std::string_view path, std::string_view root,
                                        std::string_view to) {
  note(DiskAction::copy, path);
  const auto source = needWalked(path, root);
  needParent(to);
  if (find(to)) fail(FailureNumber::fileAlreadyExists);
  if (freeBytes && *freeBytes < source->length()) fail(FailureNumber::diskFull);
  if (freeBytes) *freeBytes -= source->length();
  const auto copy = addFile(to);
  copy->content = source->content;
  copy->pretendedLength = source->pretendedLength;
  copy->flags = source->flags;
  copy->modified.seconds = source->modified.seconds / dateStep * dateStep;
  return {seen(*source), seen(*copy)};
}

bool MemoryFileSystem::isSameFile(std::string_view path, std::string_view other) {
  note(DiskAction::sameFile, path);
  const auto node = find(path);
  return node && node == find(other);
}

void MemoryFileSystem::rename(std::string_view from, std::string_view to) {
  note(DiskAction::rename, from);
  const auto node = need(from, FailureNumber::fileNotFound);
  const auto target = needParent(to);
  const auto taken = find(to);
  if (taken && (taken != node || node->name == nameOf(to))) fail(FailureNumber::fileAlreadyExists);
  erase(from);
  node->name = nameOf(to);
  target->children.push_back(node);
}

FileNumber MemoryFileSystem::open(std::string_view path, OpenMode mode) {
  note(DiskAction::open, path, 0, mode);
  auto node = find(path);
  if (!node)
    node = mode == OpenMode::output || mode == OpenMode::binary
               ? addFile(path)
               : need(path, FailureNumber::fileNotFound);
  if (node->isDirectory) fail(FailureNumber::pathFileAccess);
  const bool writes = mode != OpenMode::input && mode != OpenMode::sharedBinary;
  if (writes && (node->flags & attributeReadOnly) != 0) fail(FailureNumber::pathFileAccess);
  if (mode == OpenMode::output) {
    node->content.clear();
    change(*node);
  }
  FileNumber number = 1;
  while (open_.contains(number))
    ++number;
  open_[number] = {node, std::string(path), mode};
  return number;
}

MemoryFileSystem::OpenFile& MemoryFileSystem::opened(FileNumber file) {
  const auto found = open_.find(file);
  if (found == open_.end()) fail(FailureNumber::invalidProcedureCall);
  return found->second;
}

std::size_t MemoryFileSystem::read(FileNumber file, std::span<char> into) {
  OpenFile& from = opened(file);
  note(DiskAction::read, from.path, static_cast<std::int64_t>(from.position));
  if (from.mode == OpenMode::output) fail(FailureNumber::pathFileAccess);
  const std::string& content = from.node->content;
  const std::size_t left = content.size() - std::min(from.position, content.size());
  const std::size_t length = std::min(into.size(), left);
  if (length > 0) std::memcpy(into.data(), content.data() + from.position, length);
  from.position += length;
  from.triedToPassEnd = length < into.size();
  return length;
}

void MemoryFileSystem::write(FileNumber file, std::string_view bytes) {
  OpenFile& to = opened(file);
  const bool canWrite = to.mode != OpenMode::input && to.mode != OpenMode::sharedBinary;
  try {
    tellHook({DiskAction::write, to.path, static_cast<std::int64_t>(to.position)});
  } catch (...) {
    // Not the half, which is often whole lines.
    if (canWrite) put(to, bytes.substr(0, bytes.size() * 3 / 5));
    throw;
  }
  failIfPlanned(DiskAction::write, to.path);
  if (!canWrite) fail(FailureNumber::pathFileAccess);
  if (freeBytes && *freeBytes < static_cast<std::int64_t>(bytes.size()))
    fail(FailureNumber::diskFull);
  if (freeBytes) *freeBytes -= static_cast<std::int64_t>(bytes.size());
  put(to, bytes);
}

void MemoryFileSystem::put(OpenFile& to, std::string_view bytes) {
  std::string& content = to.node->content;
  content.resize(std::max(content.size(), to.position + bytes.size()));
  content.replace(to.position, bytes.size(), bytes);
  change(*to.node);
  to.position += bytes.size();
}

void MemoryFileSystem::seek(FileNumber file, std::int64_t position) {
  OpenFile& moved = opened(file);
  note(DiskAction::seek, moved.path, position);
  if (position < 0) fail(FailureNumber::invalidProcedureCall);
  moved.position = static_cast<std::size_t>(position);
  moved.triedToPassEnd = false;
}

std::int64_t MemoryFileSystem::openLength(FileNumber file) {
  const OpenFile& asked = opened(file);
  note(DiskAction::openLength, asked.path);
  return asked.node->length();
}

bool MemoryFileSystem::atEnd(FileNumber file) {
  const OpenFile& asked = opened(file);
  note(DiskAction::atEnd, asked.path);
  if (asked.mode == OpenMode::input) return asked.position >= asked.node->content.size();
  return asked.triedToPassEnd;
}

void MemoryFileSystem::close(FileNumber file) {
  const std::string path = opened(file).path;
  open_.erase(file);  // A file that fails to close is closed, as on the real disk.
  note(DiskAction::close, path);
}

}  // namespace quernstoke
