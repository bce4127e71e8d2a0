// The listing of a zip archive, and the extraction of the entries that it tells.

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/zipArchives.h"

namespace quernstoke {
namespace {

namespace fs = std::filesystem;

struct Listed {
  std::string name;
  std::uint64_t size;
};

class Callbacks : public ArchiveCallbacks {
 public:
  std::vector<Listed> listed;

  void print(std::string_view) override {}
  ReplaceAnswer replace(std::string_view) override { return ReplaceAnswer::no; }
  int password(std::span<char> buffer) override {
    constexpr std::string_view sesame = "sesame";
    std::memcpy(buffer.data(), sesame.data(), sesame.size());
    return 0;
  }
  void message(const ArchiveEntry& entry) override {
    listed.push_back({std::string(entry.name), entry.size});
  }
  void service(std::string_view) override {}
};

std::string withEscapedBrackets(std::string_view name) {
  std::string escaped;
  for (const char c : name) {
    if (c == '[' || c == ']') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::vector<fs::path> namesIn(const std::string& directory) {
  std::vector<fs::path> names;
  for (const auto& entry : fs::directory_iterator(directory))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

class ArchiveInATree {
 public:
  explicit ArchiveInATree(const std::string& bytes) {
    tree_.file("archive.zip", bytes);
    tree_.file("beside", "a person's own");
    tree_.directory("out");
  }

  void extractAll() {
    constexpr std::size_t mostEntries = 16;
    const int result = run({}, 1);
    if (result != archiveOk) require(callbacks_.listed.empty(), "what can't be read lists nothing");
    std::map<std::string, std::uint64_t> firstOfName;
    for (const Listed& entry : callbacks_.listed)
      if (firstOfName.size() < mostEntries) firstOfName.try_emplace(entry.name, entry.size);
    for (const auto& [name, size] : firstOfName)
      extract({name, size});
  }

 private:
  int run(const std::vector<std::string>& included, int list) {
    ArchiveOptions options;
    options.nvflag = list;
    options.noflag = 1;
    options.lpszZipFN = tree_.programPath("archive.zip");
    options.lpszExtractDir = list == 1 ? std::string() : tree_.programPath("out");
    return library_.singleEntryUnzip(included, options, callbacks_);
  }

  void extract(const Listed& entry) {
    requireOneName(entry.name);
    const int result = run({withEscapedBrackets(entry.name)}, 0);
    const std::string bare = linuxName(entry.name.substr(entry.name.rfind('/') + 1));
    const std::vector<fs::path> found = namesIn(tree_.path("out"));
    if (result == archiveOk) {
      require(found == std::vector<fs::path>{bare},
              "an entry has its bare name and leaves no more");
      const fs::path file = tree_.path("out/" + bare);
      require(fs::is_regular_file(fs::symlink_status(file)), "an entry becomes a file");
      require(fs::file_size(file) == entry.size, "an entry is as long as the archive tells");
      fs::remove(file);
    } else {
      require(found.empty(), "an entry that can't be extracted leaves nothing");
    }
    require(namesIn(tree_.root()) == std::vector<fs::path>{"archive.zip", "beside", "out"},
            "nothing is made outside the directory");
    require(tree_.content("beside") == "a person's own", "the files outside keep their content");
  }

  // No component of a name divides a path or breaks a record of the program.
  static void requireOneName(const std::string& name) {
    for (const char c : name)
      require(std::strchr("\\:*?\"<>|", c) == nullptr && static_cast<unsigned char>(c) >= ' ',
              "a name holds no character of a path");
  }

  TemporaryTree tree_;
  ZipArchives library_{DriveTable()};
  Callbacks callbacks_;
};

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  quernstoke::ArchiveInATree({data, data + size}).extractAll();
  return 0;
}
