#include "platform/linux/zipArchives.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "platform/linux/packArchive.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// Keeps what the library says, and answers as told.
class Answers : public ArchiveCallbacks {
 public:
  std::vector<std::string> names;
  std::vector<ArchiveEntry> entries;  // Without their names.
  std::string said;
  std::string passwordToGive;

  void print(std::string_view bytes) override { said += bytes; }
  ReplaceAnswer replace(std::string_view /*name*/) override { return ReplaceAnswer::no; }
  int password(std::span<char> buffer) override {
    if (passwordToGive.empty()) return 1;
    passwordToGive.copy(buffer.data(), buffer.size() - 1);
    return 0;
  }
  void message(const ArchiveEntry& entry) override {
    names.emplace_back(entry.name);
    entries.push_back(entry);
    entries.back().name = {};
  }
  void service(std::string_view /*name*/) override {}
};

class ZipArchivesTest : public testing::Test {
 protected:
  ZipArchivesTest() { tree.directory("out"); }

  void packed(const std::vector<Packed>& entries) const {
    packArchive(tree.path("a.zip"), entries);
  }
  // Replaces the n-th occurrence, from 1, of some bytes of the archive.
  void patch(const std::string& what, const std::string& with, int nth = 1) const {
    std::string bytes = tree.content("a.zip");
    std::size_t at = bytes.find(what);
    for (int i = 1; i < nth && at != std::string::npos; ++i)
      at = bytes.find(what, at + 1);
    ASSERT_NE(at, std::string::npos);
    tree.file("a.zip", bytes.replace(at, with.size(), with));
  }

  int list(const std::string& name = "a.zip") {
    ArchiveOptions options;
    options.nvflag = 1;
    options.lpszZipFN = tree.programPath(name);
    return archives.singleEntryUnzip({}, options, answers);
  }
  int extract(const std::string& entry, const std::string& into = "out") {
    ArchiveOptions options;
    options.noflag = 1;
    options.lpszZipFN = tree.programPath("a.zip");
    options.lpszExtractDir = tree.programPath(into);
    return archives.singleEntryUnzip({&entry, 1}, options, answers);
  }
  std::vector<std::string> namesIn(const std::string& directory) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(tree.path(directory)))
      names.push_back(entry.path().filename());
    return names;
  }

  TemporaryTree tree;
  ZipArchives archives{DriveTable()};
  Answers answers;
};

// Little-endian, as archives have them.
std::string bytesOf(std::uint64_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i)
    bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

// Listings.

TEST_F(ZipArchivesTest, EntriesAreListedWithTheirSizesAndMinutes) {
  packed({{"docs/", ""}, {"docs/a.txt", std::string(5000, 'x')}, {"b.txt", "12"}});
  EXPECT_EQ(list(), archiveOk);
  EXPECT_THAT(answers.names, ElementsAre("docs/", "docs/a.txt", "b.txt"));
  EXPECT_EQ(answers.entries[1].size, 5000U);
  EXPECT_LT(answers.entries[1].compressedSize, 100U);
  EXPECT_EQ(answers.entries[1].date, (CivilTime{2004, 5, 6, 7, 8, 0}));
  EXPECT_FALSE(answers.entries[1].encrypted);
}

TEST_F(ZipArchivesTest, NamesAreTextWhateverTheirEncoding) {
  packed({{"th\xC3\xA9", "1", ZIP_FL_ENC_UTF_8}, {"caf\x82", "1", ZIP_FL_ENC_CP437}});
  list();
  EXPECT_THAT(answers.names, ElementsAre("th\xC3\xA9", "caf\xC3\xA9"));
}

TEST_F(ZipArchivesTest, CharactersThatDivideTheProgramsPathsStandAsOthers) {
  packed({{"C:\\a\\b.txt", "1"}, {"one\ntwo\"", "1"}});
  list();
  EXPECT_THAT(answers.names, ElementsAre(windowsName("C:\\a\\b.txt"), windowsName("one\ntwo\"")));
  EXPECT_EQ(answers.names[0].find('\\'), std::string::npos);
  EXPECT_EQ(answers.names[1].find_first_of("\n\""), std::string::npos);
}

TEST_F(ZipArchivesTest, EncryptedEntryIsListedAsSuch) {
  packed({{"secret", "1", ZIP_FL_ENC_UTF_8, true}});
  EXPECT_EQ(list(), archiveOk);
  EXPECT_TRUE(answers.entries.at(0).encrypted);
}

TEST_F(ZipArchivesTest, MoreEntriesThanAnOldArchiveCanCountAreListed) {
  std::vector<Packed> entries;
  for (int i = 0; i < 65'536; ++i)
    entries.push_back({std::to_string(i), ""});
  packArchive(tree.path("a.zip"), entries, false);
  EXPECT_EQ(list(), archiveOk);
  EXPECT_EQ(answers.names.size(), 65'536U);
  EXPECT_EQ(extract("65535"), archiveOk);
}

TEST_F(ZipArchivesTest, SizeOfTwoGibibytesAndMoreIsToldAsItIs) {
  packed({{"a.txt", "1"}});
  constexpr int sizeInDirectory = 24;
  std::string bytes = tree.content("a.zip");
  bytes.replace(bytes.find("PK\x01\x02") + sizeInDirectory, 4, bytesOf(0xF0000000U, 4));
  tree.file("a.zip", bytes);
  list();
  EXPECT_EQ(answers.entries.at(0).size, 0xF0000000U);
}

TEST_F(ZipArchivesTest, LetterCaseOfTheArchivesPathDoesNotCount) {
  packed({{"a.txt", "1"}});
  EXPECT_EQ(list("A.ZIP"), archiveOk);
  EXPECT_THAT(answers.names, ElementsAre("a.txt"));
}

// What is no archive, or one no more.

TEST_F(ZipArchivesTest, WhatIsNoArchiveIsNotOpened) {
  tree.file("text.zip", "this is no archive");
  tree.file("empty.zip");
  tree.directory("directory.zip");
  tree.fifo("fifo.zip");
  for (const char* name : {"gone.zip", "text.zip", "empty.zip", "directory.zip", "fifo.zip"})
    EXPECT_EQ(list(name), archiveNotFound) << name;
  EXPECT_THAT(answers.names, IsEmpty());
  EXPECT_THAT(answers.said, HasSubstr("cannot find or open " + tree.programPath("text.zip")));
}

TEST_F(ZipArchivesTest, PathThatCannotBeIsNotFound) {
  ArchiveOptions options;
  options.nvflag = 1;
  options.lpszZipFN = "Q:\\a.zip";
  EXPECT_EQ(archives.singleEntryUnzip({}, options, answers), archiveNotFound);
}

TEST_F(ZipArchivesTest, TruncatedArchiveListsNothing) {
  packed({{"a.txt", std::string(1000, 'x')}, {"b.txt", "1"}});
  const std::string whole = tree.content("a.zip");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    tree.file("a.zip", whole.substr(0, length));
    EXPECT_NE(list(), archiveOk) << length;
  }
  EXPECT_THAT(answers.names, IsEmpty());
}

// Whatever the bytes of the directory say, reading them does no harm.
TEST_F(ZipArchivesTest, DamagedDirectoryIsHarmless) {
  packed({{"a.txt", "12345678"}, {"b.txt", "1"}});
  const std::string whole = tree.content("a.zip");
  for (std::size_t at = whole.find("PK\x01\x02"); at < whole.size(); ++at)
    for (const char byte : {'\0', '\x7F', '\xFF'}) {
      std::string damaged = whole;
      damaged[at] = byte;
      tree.file("a.zip", damaged);
      list();
      extract("a.txt");
      for (const std::string& name : namesIn("out"))
        EXPECT_EQ(name, "a.txt");
    }
}

// Extractions.

TEST_F(ZipArchivesTest, EntryIsWrittenUnderItsBareName) {
  packed({{"docs/old/a.txt", "old"}, {"a.txt", "new"}});
  EXPECT_EQ(extract("docs/old/a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "old");
  EXPECT_THAT(namesIn("out"), ElementsAre("a.txt"));
}

TEST_F(ZipArchivesTest, FileOfThatNameIsOverwritten) {
  packed({{"a.txt", "new"}});
  tree.file("out/a.txt", "older and longer");
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "new");
}

TEST_F(ZipArchivesTest, EscapedBracketsAreBrackets) {
  packed({{"x[1].txt", "1"}, {"x1.txt", "2"}});
  EXPECT_EQ(extract("x\\[1\\].txt"), archiveOk);
  EXPECT_EQ(tree.content("out/x[1].txt"), "1");
}

TEST_F(ZipArchivesTest, NamesThatDifferInLetterCaseAreTwoEntries) {
  packed({{"a.txt", "small"}, {"A.TXT", "LARGE"}});
  extract("A.TXT");
  extract("a.txt");
  EXPECT_EQ(tree.content("out/A.TXT"), "LARGE");
  EXPECT_EQ(tree.content("out/a.txt"), "small");
}

TEST_F(ZipArchivesTest, EntryThatIsNotThereIsNotMatched) {
  packed({{"a.txt", "1"}});
  EXPECT_EQ(extract("b.txt"), archiveNoMatchingEntry);
  EXPECT_EQ(answers.said, "caution: filename not matched:  b.txt\n");
  EXPECT_THAT(namesIn("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, EncryptedEntryNeedsItsPassword) {
  packed({{"secret", "12345", ZIP_FL_ENC_UTF_8, true}});
  EXPECT_EQ(extract("secret"), archiveBadPassword);
  answers.passwordToGive = "wrong";
  EXPECT_EQ(extract("secret"), archiveBadPassword);
  EXPECT_EQ(answers.said,
            "   skipping: secret  incorrect password\n   skipping: secret  incorrect password\n");
  EXPECT_THAT(namesIn("out"), IsEmpty());
  answers.passwordToGive = archivePassword;
  EXPECT_EQ(extract("secret"), archiveOk);
  EXPECT_EQ(tree.content("out/secret"), "12345");
}

// The sanitizer sees the memory that libzip would lose.
TEST_F(ZipArchivesTest, NoPasswordOpensAnEntryOfUnknownEncryption) {
  constexpr std::size_t flags = 8;
  packed({{"a.txt", "1"}});
  std::string bytes = tree.content("a.zip");
  bytes[bytes.find("PK\x01\x02") + flags] |= 0x41;  // Encrypted, by a method that is not told.
  tree.file("a.zip", bytes);
  answers.passwordToGive = archivePassword;
  EXPECT_EQ(extract("a.txt"), archiveBadPassword);
  EXPECT_THAT(namesIn("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, ArchiveThatHasChangedIsReadAnew) {
  packed({{"a.txt", "1"}});
  list();
  packed({{"b.txt", "2"}, {"a.txt", "the new one"}});
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "the new one");
  std::filesystem::remove(tree.path("a.zip"));
  EXPECT_EQ(extract("a.txt"), archiveNotFound);
}

TEST_F(ZipArchivesTest, OnlyTheOwnerMayReadWhatIsExtracted) {
  packed({{"a.txt", "1"}});
  extract("a.txt");
  EXPECT_EQ(std::filesystem::status(tree.path("out/a.txt")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

// Nothing is written elsewhere, and nothing half-written stays.

TEST_F(ZipArchivesTest, NameThatLeadsElsewhereLandsInTheDirectoryAllTheSame) {
  const std::string absolute = tree.path("elsewhere/a");
  packed({{absolute, "1"}, {"../b", "2"}, {"x/../../c", "3"}, {"..\\d", "4"}});
  extract(absolute);
  extract("../b");
  extract("x/../../c");
  extract(windowsName("..\\d"));
  EXPECT_THAT(namesIn("out"), UnorderedElementsAre("a", "b", "c", "..\\d"));
  EXPECT_THAT(namesIn("."), UnorderedElementsAre("a.zip", "out"));
}

TEST_F(ZipArchivesTest, NameThatNoFileCanHaveIsSkipped) {
  const std::string tooLong(300, 'x');
  packed({{"..", "1"}, {"a/.", "2"}, {tooLong, "3"}, {"folder/", ""}});
  for (const std::string& name : {std::string(".."), std::string("a/."), tooLong})
    EXPECT_EQ(extract(name), archiveNoMatchingEntry) << name;
  EXPECT_NE(extract("folder/"), archiveOk);
  EXPECT_NE(extract(""), archiveOk);
  EXPECT_THAT(namesIn("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, LinkOfThatNameIsReplacedAndNotFollowed) {
  packed({{"a.txt", "new"}});
  tree.file("precious", "precious");
  tree.link("out/a.txt", tree.path("precious"));
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("precious"), "precious");
  EXPECT_FALSE(std::filesystem::is_symlink(tree.path("out/a.txt")));
  EXPECT_EQ(tree.content("out/a.txt"), "new");
}

TEST_F(ZipArchivesTest, DirectoryOfThatNameStays) {
  packed({{"a.txt", "new"}});
  tree.file("out/a.txt/inside", "1");
  EXPECT_NE(extract("a.txt"), archiveOk);
  EXPECT_THAT(namesIn("out"), ElementsAre("a.txt"));
  EXPECT_EQ(tree.content("out/a.txt/inside"), "1");
}

TEST_F(ZipArchivesTest, DamagedContentLeavesNothingAndTheOldFileAlone) {
  packArchive(tree.path("a.zip"), {{"a.txt", "12345678"}}, false);
  patch("12345678", "12345679");
  tree.file("out/a.txt", "old");
  EXPECT_EQ(extract("a.txt"), archiveDamaged);
  EXPECT_THAT(answers.said, HasSubstr("a.txt is damaged"));
  EXPECT_EQ(tree.content("out/a.txt"), "old");
  EXPECT_THAT(namesIn("out"), ElementsAre("a.txt"));
}

// So that an entry that claims a few bytes can't fill the disk.
TEST_F(ZipArchivesTest, EntryOfAnotherSizeThanItClaimsLeavesNothing) {
  constexpr int sizeInDirectory = 24;
  for (const std::uint64_t claimed : {10U, 2'000'000U}) {
    packed({{"a.txt", std::string(1'000'000, 'x')}});
    std::string bytes = tree.content("a.zip");
    bytes.replace(bytes.find("PK\x01\x02") + sizeInDirectory, 4, bytesOf(claimed, 4));
    tree.file("a.zip", bytes);
    EXPECT_EQ(extract("a.txt"), archiveDamaged) << claimed;
    EXPECT_THAT(namesIn("out"), IsEmpty()) << claimed;
  }
}

// Files can't grow beyond some bytes, as on a disk that is full.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~SmallDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(ZipArchivesTest, FullDiskLeavesNothing) {
  packed({{"a.txt", std::string(1'000'000, 'x')}});
  const SmallDisk disk(100'000);
  EXPECT_EQ(extract("a.txt"), archiveDiskFull);
  EXPECT_THAT(answers.said, HasSubstr("the disk may be full"));
  EXPECT_THAT(namesIn("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, DirectoryThatCannotBeWrittenIsAFailedExtraction) {
  packed({{"a.txt", "1"}});
  EXPECT_EQ(extract("a.txt", "gone"), archiveDiskFull);
  EXPECT_THAT(answers.said, HasSubstr("cannot create a.txt"));
  EXPECT_FALSE(tree.exists("gone"));
}

}  // namespace
}  // namespace quernstoke
