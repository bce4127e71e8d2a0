// Writes the archives of fuzz/corpus/zipArchives into the directory that it is given: whole ones,
// and some that are damaged in the ways that downloads and other programs do it.

#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>

#include "platform/linux/handMadeArchive.h"
#include "platform/linux/packArchive.h"

namespace quernstoke {
namespace {

class Corpus {
 public:
  explicit Corpus(std::string directory) : directory_(std::move(directory)) {
    std::filesystem::create_directories(directory_);
  }

  void pack(const std::string& name, const std::vector<Packed>& entries, bool compressed = true) {
    std::filesystem::remove(path(name));
    packArchive(path(name), entries, compressed);
  }
  void write(const std::string& name, const std::string& bytes) {
    std::ofstream(path(name), std::ios::binary) << bytes;
  }
  // Another archive, made of the bytes of one that was packed.
  void damage(const std::string& from, const std::string& to,
              const std::function<void(std::string&)>& change) {
    std::ifstream in(path(from), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    change(bytes);
    write(to, bytes);
  }

 private:
  std::string path(const std::string& name) const { return directory_ + '/' + name + ".zip"; }

  std::string directory_;
};

// Where the central directory tells of its first entry, and of what.
constexpr std::size_t toldFlags = 8;
constexpr std::size_t toldSize = 24;
std::size_t firstTold(const std::string& bytes, std::size_t what) {
  return bytes.find("PK\x01\x02") + what;
}

void packAll(Corpus corpus) {
  const std::string text(300, 'a');
  corpus.pack("empty-entry", {{"empty.txt", ""}});
  corpus.pack("stored", {{"a.txt", "alpha"}, {"b.txt", "beta"}}, false);
  corpus.pack("deflated", {{"in/a.txt", text}, {"in/b/", ""}, {"in/b/c.txt", text + "b"}});
  corpus.pack("same-name-in-two-folders", {{"one/a.txt", "first"}, {"two/a.txt", "second one"}});
  corpus.pack("odd-names",
              {{"../up.txt", "up"},
               {"/root.txt", "root"},
               {"[x].txt", "brackets"},
               {"a:b|c.txt", "reserved"},
               {"..", "dots"},
               {std::string(300, 'n'), "long"}},
              false);
  corpus.pack("old-encoding", {{"\x81\x9c.txt", "umlauts", ZIP_FL_ENC_CP437}});
  corpus.pack("encrypted", {{"secret.txt", text, ZIP_FL_ENC_UTF_8, true}});

  corpus.damage("stored", "cut-short", [](auto& bytes) { bytes.resize(bytes.size() - 10); });
  corpus.damage("stored", "wrong-content", [](auto& bytes) { bytes[bytes.find("alpha")] = 'A'; });
  corpus.damage("stored", "unknown-encryption",
                [](auto& bytes) { bytes[firstTold(bytes, toldFlags)] |= 0x41; });
  corpus.damage("deflated", "longer-than-told",
                [](auto& bytes) { bytes[firstTold(bytes, toldSize)] = 1; });
  corpus.damage("deflated", "shorter-than-told",
                [](auto& bytes) { bytes[firstTold(bytes, toldSize) + 1] = 100; });

  constexpr std::uint64_t large = 5ULL << 32;
  corpus.write("no-name", madeByHand({{"", "nameless"}, {"in/", ""}, {"in/a.txt", "alpha"}}));
  corpus.write("large-before-small", madeByHand({{"a.txt", "1", 0x80000000U}, {"a.txt", "alpha"}}));
  corpus.write("same-name-twice", madeByHand({{"in/a.txt", "first"}, {"in/a.txt", "other"}}));
  corpus.write("slash-in-front", madeByHand({{"a.txt", "first"}, {"/a.txt", "other"}}));
  corpus.write("zip64-sizes", madeByHand({{"small.txt", "alpha", std::nullopt, true},
                                          {"large.txt", "beta", large, true}}));
  ArchiveByHand zip64;
  zip64.add({"a.txt", "alpha"});
  corpus.write("zip64-records", zip64.wholeAsZip64());
  corpus.damage("zip64-records", "zip64-end-elsewhere", [](auto& bytes) {
    constexpr std::size_t placeOfEnd = 8;
    bytes[bytes.find("PK\x06\x07") + placeOfEnd] ^= 1;
  });
  corpus.damage("zip64-records", "zip64-too-many-entries", [](auto& bytes) {
    constexpr std::size_t entries = 32;
    bytes[bytes.find("PK\x06\x06") + entries + 3] = 1;
  });
}

}  // namespace
}  // namespace quernstoke

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: packCorpus DIRECTORY\n";
    return 2;
  }
  try {
    quernstoke::packAll(quernstoke::Corpus(arguments[1]));
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
  return 0;
}
