#include "platform/linux/zipArchives.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/linux/handMadeArchive.h"
#include "platform/linux/limitedFileSize.h"
#include "platform/linux/packArchive.h"
#include "platform/linux/temporaryTree.h"
#include "platform/wildcards.h"

namespace {
bool closingFails = false;
}  // namespace

// In the place of the system's, as no disk of a test would fail here.
extern "C" int close(int file) {
  const bool isWritten = (::fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY;
  const int result = static_cast<int>(::syscall(SYS_close, file));
  if (!closingFails || !isWritten || result != 0) return result;
  errno = EDQUOT;
  return -1;
}

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
  void byHand(const std::vector<HandMade>& entries) const {
    tree.file("a.zip", madeByHand(entries));
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
  // What the process has open in the tree.
  std::vector<std::string> openFiles() const {
    std::vector<std::string> open;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code ignored;
      const std::string path = std::filesystem::read_symlink(entry.path(), ignored);
      if (path.starts_with(tree.root())) open.push_back(path);
    }
    return open;
  }

  TemporaryTree tree;
  ZipArchives archives{DriveTable()};
  Answers answers;
};

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
  byHand({{"a.txt", "1", 0xF0000000U}});
  list();
  EXPECT_EQ(answers.entries.at(0).size, 0xF0000000U);
}

// Programs that write while they read use the extra field for any size.
TEST_F(ZipArchivesTest, SizesInTheExtraFieldAreThoseOfTheEntry) {
  constexpr std::uint64_t large = 5ULL << 32;
  byHand({{"small.txt", "123", {}, true}, {"large.txt", "1", large, true}});
  EXPECT_EQ(list(), archiveOk);
  EXPECT_EQ(answers.entries.at(0).size, 3U);
  EXPECT_EQ(answers.entries.at(0).compressedSize, 3U);
  EXPECT_EQ(answers.entries.at(1).size, large);
  EXPECT_EQ(extract("small.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/small.txt"), "123");
  EXPECT_EQ(extract("large.txt"), archiveNoMatchingEntry);
}

TEST_F(ZipArchivesTest, EntryWithoutANameIsListedAndNotExtracted) {
  byHand({{"", "12"}, {"b.txt", "1"}});
  EXPECT_EQ(list(), archiveOk);
  EXPECT_THAT(answers.names, ElementsAre("", "b.txt"));
  EXPECT_EQ(answers.entries[0].size, 2U);
  EXPECT_EQ(extract(""), archiveNoMatchingEntry);
  EXPECT_THAT(answers.said, HasSubstr("no file can have this name"));
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

// Else a medium could not be taken out after a scan.
TEST_F(ZipArchivesTest, NothingStaysOpenAfterACall) {
  packed({{"a.txt", "1"}, {"b.txt", std::string(10, 'x')}});
  list();
  EXPECT_THAT(openFiles(), IsEmpty());
  for (const char* entry : {"a.txt", "b.txt", "gone.txt"}) {
    extract(entry);
    EXPECT_THAT(openFiles(), IsEmpty()) << entry;
  }
  EXPECT_EQ(tree.content("out/b.txt"), std::string(10, 'x'));
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

class DamagedArchiveTest : public ZipArchivesTest {
 protected:
  // Tries an archive with each byte from some place on damaged. Nothing is made but the entry, and
  // that whole.
  void expectHarmless(const std::string& whole, const std::string& from) {
    int extractions = 0;
    for (std::size_t at = whole.find(from); at < whole.size(); ++at)
      for (const char byte : {'\0', '\x7F', '\xFF'}) {
        SCOPED_TRACE(at);
        std::string damaged = whole;
        damaged[at] = byte;
        tree.file("a.zip", damaged);
        list();
        if (extract("a.txt") == archiveOk) {
          ++extractions;
          EXPECT_EQ(tree.content("out/a.txt"), "12345678");
          std::filesystem::remove(tree.path("out/a.txt"));
        }
        EXPECT_THAT(tree.names("out"), IsEmpty());
        EXPECT_THAT(tree.names(), UnorderedElementsAre("a.zip", "out"));
        EXPECT_EQ(tree.content("a.zip"), damaged);
      }
    EXPECT_GT(extractions, 0);
  }
};

// Whatever the bytes of the directory say, reading them does no harm.
TEST_F(DamagedArchiveTest, DamagedDirectoryIsHarmless) {
  packed({{"a.txt", "12345678"}, {"b.txt", "1"}});
  expectHarmless(tree.content("a.zip"), "PK\x01\x02");
}

TEST_F(DamagedArchiveTest, DamagedRecordsOfALargeArchiveAreHarmless) {
  ArchiveByHand archive;
  archive.add({"a.txt", "12345678", {}, true});
  tree.file("a.zip", archive.wholeAsZip64());
  EXPECT_EQ(list(), archiveOk);
  EXPECT_THAT(answers.names, ElementsAre("a.txt"));
  expectHarmless(archive.wholeAsZip64(), "PK\x01\x02");
}

TEST_F(DamagedArchiveTest, LargeArchiveWhoseRecordsCannotBeFoundListsNothing) {
  ArchiveByHand archive;
  archive.add({"a.txt", "1"});
  const std::string whole = archive.wholeAsZip64();
  for (const char* record : {"PK\x06\x06", "PK\x06\x07"}) {
    std::string damaged = whole;
    damaged[damaged.find(record)] = 'X';
    tree.file("a.zip", damaged);
    EXPECT_EQ(list(), archiveNotFound);
  }
  EXPECT_THAT(answers.names, IsEmpty());
}

// Extractions.

TEST_F(ZipArchivesTest, EntryIsWrittenUnderItsBareName) {
  packed({{"docs/old/a.txt", "old"}, {"a.txt", "new"}});
  EXPECT_EQ(extract("docs/old/a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "old");
  EXPECT_THAT(tree.names("out"), ElementsAre("a.txt"));
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
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, EncryptedEntryNeedsItsPassword) {
  packed({{"secret", "12345", ZIP_FL_ENC_UTF_8, true}});
  EXPECT_EQ(extract("secret"), archiveBadPassword);
  answers.passwordToGive = "wrong";
  EXPECT_EQ(extract("secret"), archiveBadPassword);
  EXPECT_EQ(answers.said,
            "   skipping: secret  incorrect password\n   skipping: secret  incorrect password\n");
  EXPECT_THAT(tree.names("out"), IsEmpty());
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
  EXPECT_THAT(tree.names("out"), IsEmpty());
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
  EXPECT_THAT(tree.names("out"), UnorderedElementsAre("a", "b", "c", "..\\d"));
  EXPECT_THAT(tree.names(), UnorderedElementsAre("a.zip", "out"));
}

TEST_F(ZipArchivesTest, NameWithADriveLandsInTheDirectoryAllTheSame) {
  packed({{"C:\\a.txt", "1"}, {"C:/x/b.txt", "2"}, {"C:c.txt", "3"}});
  list();
  for (const std::string& name : answers.names)
    EXPECT_EQ(extract(name), archiveOk) << name;
  EXPECT_THAT(tree.names("out"), UnorderedElementsAre("C:\\a.txt", "b.txt", "C:c.txt"));
  EXPECT_EQ(tree.content("out/C:\\a.txt"), "1");
  EXPECT_EQ(tree.content("out/b.txt"), "2");
  EXPECT_THAT(tree.names(), UnorderedElementsAre("a.zip", "out"));
}

TEST_F(ZipArchivesTest, NameThatNoFileCanHaveIsSkipped) {
  const std::string tooLong(300, 'x');
  packed({{"..", "1"}, {"a/.", "2"}, {tooLong, "3"}, {"folder/", ""}});
  for (const std::string& name : {std::string(".."), std::string("a/."), tooLong})
    EXPECT_EQ(extract(name), archiveNoMatchingEntry) << name;
  EXPECT_NE(extract("folder/"), archiveOk);
  EXPECT_NE(extract(""), archiveOk);
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

TEST_F(ZipArchivesTest, LinkOfThatNameStaysAndIsNotFollowed) {
  packed({{"a.txt", "new"}});
  tree.file("precious", "precious");
  for (const char* target : {"precious", "gone"}) {
    tree.link("out/a.txt", tree.path(target));
    EXPECT_EQ(extract("a.txt"), archiveDiskFull);
    EXPECT_EQ(std::filesystem::read_symlink(tree.path("out/a.txt")), tree.path(target));
    std::filesystem::remove(tree.path("out/a.txt"));
  }
  EXPECT_EQ(tree.content("precious"), "precious");
  EXPECT_FALSE(tree.exists("gone"));
}

TEST_F(ZipArchivesTest, EntryOfTwoGibibytesAndMoreIsNotExtracted) {
  byHand({{"a.txt", "1", 0x80000000U}});
  EXPECT_EQ(extract("a.txt"), archiveNoMatchingEntry);
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

// One of 2 GiB or more is in no catalogue, so that it is not meant.
TEST_F(ZipArchivesTest, OfTwoEntriesOfOneNameTheOneOfALesserSizeIsExtracted) {
  byHand({{"a.txt", "1", 0x80000000U}, {"a.txt", "second"}});
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "second");
}

// Names that can't be told from one another in the catalogue. Whichever were extracted, it might
// be taken for the other, and a file that only equals this one for a copy of that.
class AmbiguousNameTest : public ZipArchivesTest {
 protected:
  void expectRefused(const std::string& name) {
    answers.said.clear();
    EXPECT_EQ(extract(name), archiveNoMatchingEntry) << name;
    EXPECT_EQ(answers.said, "caution: more than one entry has this name:  " + name + "\n");
    EXPECT_THAT(tree.names("out"), IsEmpty()) << name;
  }
};

TEST_F(AmbiguousNameTest, NeitherOfTwoEntriesOfOneNameIsExtracted) {
  byHand({{"in/a.txt", "first"}, {"in/a.txt", "other"}, {"a.txt", "of the root"}});
  expectRefused("in/a.txt");
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "of the root");
}

TEST_F(AmbiguousNameTest, SlashInFrontOfAnEntryOfTheRootDoesNotTellItFromAnother) {
  for (const auto& [first, second] :
       {std::pair("root.txt", "/root.txt"), {"/root.txt", "root.txt"}}) {
    byHand({{first, "12345"}, {second, "67890"}});
    expectRefused("root.txt");
    expectRefused("/root.txt");
  }
}

TEST_F(AmbiguousNameTest, SlashInFrontOfAFolderTellsItFromAnother) {
  byHand({{"in/a.txt", "12345"}, {"/in/a.txt", "67890"}});
  EXPECT_EQ(extract("in/a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "12345");
  EXPECT_EQ(extract("/in/a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "67890");
}

TEST_F(AmbiguousNameTest, WhatTheCatalogueCutsOffDoesNotTellNamesApart) {
  const std::string name = std::string(longestEntryName - 2, 'f') + "/a";
  byHand({{name + "1", "12345"}, {name + "2", "67890"}});
  expectRefused(name);
  byHand({{name, "12345"}, {name + "2", "67890"}});
  expectRefused(name);
}

TEST_F(AmbiguousNameTest, LongNamesThatDifferInTheirLastCharacterAreTwo) {
  std::string folder;
  while (folder.size() < 2 * (longestEntryName - 2))
    folder += "\xC3\xA9";
  byHand({{folder + "/a", "12345"}, {folder + "/b", "67890"}});
  EXPECT_EQ(extract(folder + "/b"), archiveOk);
  EXPECT_EQ(tree.content("out/b"), "67890");
}

TEST_F(ZipArchivesTest, DirectoryOfThatNameStays) {
  packed({{"a.txt", "new"}});
  tree.file("out/a.txt/inside", "1");
  EXPECT_NE(extract("a.txt"), archiveOk);
  EXPECT_THAT(tree.names("out"), ElementsAre("a.txt"));
  EXPECT_EQ(tree.content("out/a.txt/inside"), "1");
}

TEST_F(ZipArchivesTest, DamagedContentLeavesNothingAndTheOldFileAlone) {
  std::string bytes = madeByHand({{"a.txt", "12345678"}});
  tree.file("a.zip", bytes.replace(bytes.find("12345678"), 8, "12345679"));
  tree.file("out/a.txt", "old");
  EXPECT_EQ(extract("a.txt"), archiveDamaged);
  EXPECT_THAT(answers.said, HasSubstr("a.txt is damaged"));
  EXPECT_EQ(tree.content("out/a.txt"), "old");
  EXPECT_THAT(tree.names("out"), ElementsAre("a.txt"));
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
    EXPECT_THAT(tree.names("out"), IsEmpty()) << claimed;
  }
}

TEST_F(ZipArchivesTest, FullDiskLeavesNothing) {
  packed({{"a.txt", std::string(1'000'000, 'x')}});
  const LimitedFileSize limit(100'000);
  EXPECT_EQ(extract("a.txt"), archiveDiskFull);
  EXPECT_THAT(answers.said, HasSubstr("the disk may be full"));
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

// As a file server does that has no room.
TEST_F(ZipArchivesTest, FailureAtTheCloseLeavesNothingAndTheOldFileAlone) {
  packed({{"a.txt", "new"}});
  tree.file("out/a.txt", "old");
  closingFails = true;
  EXPECT_EQ(extract("a.txt"), archiveDiskFull);
  closingFails = false;
  EXPECT_THAT(answers.said, HasSubstr("cannot create a.txt"));
  EXPECT_EQ(tree.content("out/a.txt"), "old");
  EXPECT_THAT(tree.names("out"), ElementsAre("a.txt"));
}

// A file in the directory above may have the entry's name.
TEST_F(ZipArchivesTest, DirectoryThatIsNotThereIsAFailedExtraction) {
  packed({{"a.txt", "1"}});
  tree.file("a.txt", "a person's own");
  tree.file("file");
  for (const char* directory : {"gone", "gone/temp", "out/gone/temp", "file", "file/temp"}) {
    EXPECT_EQ(extract("a.txt", directory), archiveDiskFull) << directory;
    EXPECT_EQ(answers.said, "  error:  cannot create a.txt\n") << directory;
    answers.said.clear();
  }
  EXPECT_EQ(tree.content("a.txt"), "a person's own");
  EXPECT_THAT(tree.names(), UnorderedElementsAre("a.txt", "a.zip", "file", "out"));
  EXPECT_THAT(tree.names("out"), IsEmpty());
}

// The file as it is before it is whole.

class WorkingFileTest : public ZipArchivesTest {
 protected:
  const std::string workingName = "TMP-extracting-" + std::to_string(::getpid());
};

TEST_F(WorkingFileTest, WhatIsThereUnderItsNameIsReplacedAndNotFollowed) {
  packed({{"a.txt", "new"}});
  tree.file("precious", "precious");
  tree.link("out/" + workingName, tree.path("precious"));
  EXPECT_EQ(extract("a.txt"), archiveOk);
  tree.file("out/" + workingName, "longer than the entry");
  EXPECT_EQ(extract("a.txt"), archiveOk);
  EXPECT_EQ(tree.content("out/a.txt"), "new");
  EXPECT_TRUE(
      std::filesystem::is_regular_file(std::filesystem::symlink_status(tree.path("out/a.txt"))));
  EXPECT_THAT(tree.names("out"), ElementsAre("a.txt"));
  EXPECT_EQ(tree.content("precious"), "precious");
}

TEST_F(WorkingFileTest, DirectoryOfItsNameIsAFailedExtraction) {
  packed({{"a.txt", "new"}});
  tree.directory("out/" + workingName);
  EXPECT_EQ(extract("a.txt"), archiveDiskFull);
  EXPECT_THAT(tree.names("out"), ElementsAre(workingName));
}

// What a scan clears of temp files when it starts.
TEST_F(WorkingFileTest, WhatAKilledProgramLeavesHasTheNameOfATempFile) {
  packed({{"a.txt", std::string(1'000'000, 'x')}});
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const LimitedFileSize limit(100'000);
    std::signal(SIGXFSZ, SIG_DFL);
    extract("a.txt");
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  const std::set<std::string> left = tree.names("out");
  ASSERT_EQ(left.size(), 1U);
  const std::string& name = *left.begin();
  EXPECT_TRUE(matchesWildcards(name, "TMP*.*")) << name;
  EXPECT_NE(name, "a.txt");
}

}  // namespace
}  // namespace quernstoke
