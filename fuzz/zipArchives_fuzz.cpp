// The listing of a zip archive, alone and into the catalogue, and the extraction of the entries
// that it tells.

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <map>
#include <string>
#include <vector>
#include <zip.h>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "core/scanState.h"
#include "fuzz/require.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/zipArchives.h"
#include "platform/platform.h"
#include "platform/utf8.h"
#include "testing/standIns.h"

namespace quernstoke {
namespace {

namespace fs = std::filesystem;

struct Listed {
  std::string name;
  std::uint64_t size;

  friend bool operator==(const Listed&, const Listed&) = default;
};

// What libzip itself has, entry by entry.
std::vector<Listed> entriesOf(const std::string& path) {
  std::vector<Listed> entries;
  zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
  if (archive == nullptr) return entries;
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
  for (zip_uint64_t index = 0; index < count; ++index) {
    zip_stat_t facts;
    const char* const name = zip_get_name(archive, index, ZIP_FL_ENC_GUESS);
    if (zip_stat_index(archive, index, 0, &facts) == 0)
      entries.push_back({windowsName(name == nullptr ? "" : name), facts.size});
  }
  zip_discard(archive);
  return entries;
}

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

constexpr std::uint64_t largestSize = std::numeric_limits<std::int32_t>::max();

// No component of a name divides a path or breaks a record of the program.
void requireNoPath(std::string_view name) {
  for (const char c : name)
    require(std::strchr("\\:*?\"<>|", c) == nullptr && static_cast<unsigned char>(c) >= ' ',
            "a name holds no character of a path");
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
    require(callbacks_.listed == entriesOf(tree_.path("archive.zip")), "each entry is listed");
    // By name, of those that have a size for the catalogue.
    std::map<std::string, std::vector<std::uint64_t>> sizes;
    for (const auto& [name, size] : callbacks_.listed) {
      if (sizes.size() == mostEntries && !sizes.contains(name)) continue;
      std::vector<std::uint64_t>& ofName = sizes[name];
      if (size <= largestSize) ofName.push_back(size);
    }
    for (const auto& [name, ofName] : sizes)
      extract(name, ofName);
  }

  void listIntoTheCatalogue() {
    StandIns engine;
    engine.platform.archives = &library_;
    usePlatform(engine.platform);
    RunState = runState::buildingList;
    MaxSizeBytes = Int32(largestSize);
    basBuildExtensionList("*.*", ExtensionList);
    basRedimFilesArrays(1, false);
    DirTable.redim(1, false);
    bool existed = false;
    const std::string path = tree_.programPath("archive.zip");
    const Int32 zipRow = basAddDirToList(path, dirKind::zipFile, noParent, existed);
    require(basScanThisZip(path, zipRow).empty(), "a scan is told nothing");
    require(engine.dialogBoxes.messages.empty(), "an archive is listed in silence");
    requireEntries(zipRow);
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

  void requireEntries(Int32 zipRow) const {
    require(ZipEntryCount ==
                countOfListed([](const Listed& entry) { return entry.size <= largestSize; }),
            "each entry with a size is told to the catalogue");
    require(FileCount == countOfListed([](const Listed& entry) {
              const std::string_view name = firstCharacters(entry.name, longestEntryName);
              return entry.size <= largestSize && !name.empty() && !name.ends_with('/');
            }),
            "each file is in the catalogue, and none is made up");
    for (Int32 file = 1; file <= FileCount; ++file) {
      const std::string_view name = FileTable.FileName[file];
      require(!name.empty() && name.find('/') == name.npos, "a file has a bare name");
      requireNoPath(name);
      const DirRow& folder = DirTable[FileTable.FileDirNum[file]];
      require(folder.kind == dirKind::zipFolder && folder.parent == zipRow,
              "a file lies in a folder of its archive");
      requireNoPath(folder.name);
      require(FileTable.FileSize[file] >= 0, "a file has a size");
    }
  }

  template <class Condition>
  std::int64_t countOfListed(Condition condition) const {
    return std::ranges::count_if(callbacks_.listed, condition);
  }

  void extract(const std::string& name, const std::vector<std::uint64_t>& sizes) {
    requireNoPath(name);
    const int result = run({withEscapedBrackets(name)}, 0);
    const std::string bare = linuxName(name.substr(name.rfind('/') + 1));
    const std::vector<fs::path> found = namesIn(tree_.path("out"));
    if (result == archiveOk) {
      require(sizes.size() == 1, "what is extracted is the one entry of its name in a catalogue");
      require(found == std::vector<fs::path>{bare},
              "an entry has its bare name and leaves no more");
      const fs::path file = tree_.path("out/" + bare);
      require(fs::is_regular_file(fs::symlink_status(file)), "an entry becomes a file");
      require(fs::file_size(file) == sizes.front(), "an entry is as long as the archive tells");
      fs::remove(file);
    } else {
      require(found.empty(), "an entry that can't be extracted leaves nothing");
    }
    require(namesIn(tree_.root()) == std::vector<fs::path>{"archive.zip", "beside", "out"},
            "nothing is made outside the directory");
    require(tree_.content("beside") == "a person's own", "the files outside keep their content");
  }

  TemporaryTree tree_;
  ZipArchives library_{DriveTable()};
  Callbacks callbacks_;
};

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  quernstoke::ArchiveInATree archive({data, data + size});
  archive.extractAll();
  archive.listIntoTheCatalogue();
  return 0;
}
