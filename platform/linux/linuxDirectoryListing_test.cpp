#include "platform/linux/linuxDirectoryListing.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

constexpr int everything =
    attributeReadOnly | attributeHidden | attributeSystem | attributeDirectory | attributeArchive;
constexpr int plainFiles = attributeReadOnly | attributeArchive;

class Listing : public testing::Test {
 protected:
  std::set<std::string> names(int mask = everything) {
    std::set<std::string> found;
    const auto listing = files_.list(tree_.programPath(), mask);
    while (listing->next())
      if (listing->name() != "." && listing->name() != "..") found.emplace(listing->name());
    return found;
  }

  // The listing at the entry of this name.
  std::unique_ptr<DirectoryListing> at(std::string_view name) {
    auto listing = files_.list(tree_.programPath(), everything);
    while (listing->next())
      if (listing->name() == name) return listing;
    throw std::runtime_error("no such entry");
  }

  TemporaryTree tree_;
  LinuxFileSystem files_{DriveTable()};
};

using Names = std::set<std::string>;

TEST_F(Listing, GivesOutFilesAndDirectories) {
  tree_.file("a.txt");
  tree_.directory("d");
  EXPECT_EQ(names(), (Names{"a.txt", "d"}));
}

TEST_F(Listing, GivesTheDotEntriesAsDirectoriesThatAreNeverHidden) {
  const auto listing = files_.list(tree_.programPath(), attributeDirectory);
  std::map<std::string, int> found;
  while (listing->next())
    found[std::string(listing->name())] = listing->isDirectory() ? listing->attributes() : 0;
  EXPECT_EQ(found, (std::map<std::string, int>{{".", 16}, {"..", 16}}));
}

TEST_F(Listing, GivesDirectoriesOnlyWhenTheMaskHoldsThem) {
  tree_.file("a");
  tree_.directory("d");
  const auto listing = files_.list(tree_.programPath(), plainFiles);
  ASSERT_TRUE(listing->next());
  EXPECT_EQ(listing->name(), "a");
  EXPECT_FALSE(listing->isDirectory());
  EXPECT_FALSE(listing->next());
}

TEST_F(Listing, GivesHiddenEntriesOnlyWhenTheMaskHoldsThem) {
  tree_.file(".hidden");
  tree_.directory(".cache");
  tree_.file("seen");
  EXPECT_EQ(names(everything & ~attributeHidden), (Names{"seen"}));
  EXPECT_EQ(names(), (Names{".hidden", ".cache", "seen"}));
  EXPECT_EQ(at(".hidden")->attributes(), attributeArchive | attributeHidden);
  EXPECT_EQ(at(".cache")->attributes(), attributeDirectory | attributeHidden);
}

TEST_F(Listing, ShowsAMissingWritePermissionAsReadOnly) {
  tree_.file("fixed");
  tree_.file("free");
  tree_.setMode("fixed", 0466);
  EXPECT_EQ(at("fixed")->attributes(), attributeArchive | attributeReadOnly);
  EXPECT_EQ(at("free")->attributes(), attributeArchive);
}

TEST_F(Listing, TellsSizeAndLocalDate) {
  tree_.file("a", "12345");
  const timespec times[] = {{0, UTIME_OMIT}, {1'700'000'000, 999'999'999}};
  ::utimensat(AT_FDCWD, tree_.path("a").c_str(), times, 0);
  const auto entry = at("a");
  EXPECT_EQ(entry->size(), 5);
  EXPECT_EQ(entry->modified(), LocalTime().at(1'700'000'000));
}

TEST_F(Listing, PassesOverAndCountsWhatIsNeitherFileNorDirectory) {
  tree_.file("a");
  tree_.link("linkToFile", "a");
  tree_.link("linkToDirectory", ".");
  tree_.link("dangling", "nowhere");
  tree_.fifo("fifo");
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  tree_.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ::close(socket);
  EXPECT_EQ(names(), (Names{"a"}));
  EXPECT_EQ(files_.passedOver().links, 3);
  EXPECT_EQ(files_.passedOver().specials, 2);
  EXPECT_EQ(files_.filesMet(), 1);
}

TEST_F(Listing, FailsForTheSizeOfAFileOfTwoGibibytesAndCountsItOnce) {
  tree_.file("large");
  tree_.file("fits");
  constexpr off_t limit = off_t{1} << 31;
  if (::truncate(tree_.path("large").c_str(), limit) != 0) GTEST_SKIP() << "no sparse files";
  ASSERT_EQ(::truncate(tree_.path("fits").c_str(), limit - 1), 0);
  const auto entry = at("large");
  EXPECT_FAILURE(overflow, entry->size());
  EXPECT_FAILURE(overflow, entry->size());
  EXPECT_EQ(at("fits")->size(), limit - 1);
  EXPECT_EQ(files_.passedOver().tooLarge, 1);
}

TEST_F(Listing, MapsNamesThatTheProgramCannotHold) {
  for (const char* name :
       {"a\\b", "tab\t", "line\nbreak", "\"quoted\"", "\xFF\xFE", "\xEF\x81\x9C"})
    tree_.file(name, name);
  EXPECT_EQ(names(),
            (Names{"a\xEF\x81\x9C"
                   "b",
                   "tab\xEF\x80\x89",
                   "line\xEF\x80\x8A"
                   "break",
                   "\xEF\x80\xA2quoted\xEF\x80\xA2", "\xFF\xFE", "\xEF\x80\x80\xEF\x81\x9C"}));
}

TEST_F(Listing, EveryMappedNameLeadsBackToItsFile) {
  std::vector<std::string> contents;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte == '/' || byte == '.') continue;
    const std::string name(1, static_cast<char>(byte));
    tree_.file(name, name);
    contents.push_back(name);
  }
  std::vector<std::string> read;
  for (const std::string& name : names()) {
    const FileNumber file = files_.open(tree_.programPath() + "\\" + name, OpenMode::sharedBinary);
    char content = 0;
    EXPECT_EQ(files_.read(file, {&content, 1}), 1U);
    files_.close(file);
    read.emplace_back(1, content);
  }
  std::sort(contents.begin(), contents.end());
  std::sort(read.begin(), read.end());
  EXPECT_EQ(read, contents);
}

TEST_F(Listing, ReadsNamesOfFullLengthAndMoreEntriesThanOneBufferHolds) {
  Names made;
  for (int i = 0; i < 500; ++i) {
    std::string name = std::to_string(1000 + i) + std::string(251, 'x');
    tree_.file(name);
    made.insert(std::move(name));
  }
  EXPECT_EQ(names(), made);
  EXPECT_EQ(files_.filesMet(), 500);
}

TEST_F(Listing, KeepsTheOrderOfTheDirectory) {
  for (int i = 0; i < 50; ++i)
    tree_.file(std::to_string(i * 7919));
  std::vector<std::string> own;
  const auto listing = files_.list(tree_.programPath(), plainFiles);
  while (listing->next())
    own.emplace_back(listing->name());
  std::vector<std::string> directorys;
  for (const auto& entry : std::filesystem::directory_iterator(tree_.root()))
    directorys.push_back(entry.path().filename());
  EXPECT_EQ(own, directorys);
}

TEST_F(Listing, GoesDownTwoHundredDirectories) {
  std::string relative;
  for (int depth = 0; depth < 200; ++depth)
    relative += "deep/";
  tree_.file(relative + "bottom");
  std::string path = tree_.programPath();
  int depth = 0;
  for (;; ++depth) {
    const auto listing = files_.list(path, plainFiles | attributeDirectory);
    std::string inner;
    while (listing->next())
      if (listing->name() == "deep") inner = listing->name();
    if (inner.empty()) break;
    path += "\\" + inner;
  }
  EXPECT_EQ(depth, 200);
  EXPECT_EQ(files_.filesMet(), 1);
}

TEST_F(Listing, AnEntryThatHasGoneAwayFailsAndCountsAsUnreadable) {
  tree_.file("gone");
  const auto entry = at("gone");
  std::filesystem::remove(tree_.path("gone"));
  EXPECT_FAILURE(fileNotFound, entry->attributes());
  EXPECT_FAILURE(fileNotFound, entry->size());
  EXPECT_FAILURE(fileNotFound, entry->modified());
  EXPECT_EQ(files_.passedOver().unreadable, 1);
}

TEST_F(Listing, AnEntryWhosePlaceALinkHasTakenFails) {
  tree_.file("a");
  const auto entry = at("a");
  std::filesystem::remove(tree_.path("a"));
  tree_.link("a", "/");
  EXPECT_FAILURE(fileNotFound, entry->size());
}

TEST_F(Listing, ADirectoryThatIsNotThereIsAPathNotFound) {
  tree_.file("file");
  EXPECT_FAILURE(pathNotFound, files_.list(tree_.programPath("none"), everything));
  EXPECT_FAILURE(pathNotFound, files_.list(tree_.programPath("file"), everything));
  EXPECT_FAILURE(pathNotFound, files_.list("Q:\\", everything));
  EXPECT_EQ(files_.passedOver().unreadable, 0);
}

TEST_F(Listing, ADirectoryThatMayNotBeReadFailsAndIsCountedOnce) {
  tree_.directory("closed");
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may read everything";
  tree_.setMode("closed", 0);
  for (int i = 0; i < 2; ++i)
    EXPECT_FAILURE(pathFileAccess, files_.list(tree_.programPath("closed"), everything));
  EXPECT_EQ(files_.passedOver().unreadable, 1);
  tree_.setMode("closed", 0700);
}

TEST_F(Listing, EntriesOfADirectoryThatMayNotBeSearchedAreGivenOutAndFail) {
  tree_.file("listable/file");
  tree_.directory("listable/inner");
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may search everything";
  tree_.setMode("listable", 0400);
  const auto listing = files_.list(tree_.programPath("listable"), everything);
  int entries = 0;
  while (listing->next()) {
    if (listing->name() == "." || listing->name() == "..") continue;
    ++entries;
    EXPECT_NE(failureOf([&] { listing->attributes(); }), std::nullopt);
  }
  EXPECT_EQ(entries, 2);
  EXPECT_EQ(files_.passedOver().unreadable, 2);
  tree_.setMode("listable", 0700);
}

TEST_F(Listing, ADirectoryReadThatBreaksIsADeviceError) {
  tree_.file("file");
  FileTally tally;
  LocalTime localTime;
  // A regular file can't be read as a directory, which is as good as a broken disk.
  LinuxDirectoryListing listing(Descriptor(::open(tree_.path("file").c_str(), O_RDONLY)),
                                tree_.path("file"), everything, tally, localTime);
  EXPECT_FAILURE(deviceError, listing.next());
  EXPECT_EQ(tally.unreadable.size(), 1U);
}

TEST_F(Listing, ADirectoryRemovedWhileItIsReadJustEnds) {
  tree_.directory("d");
  const auto listing = files_.list(tree_.programPath("d"), everything);
  std::filesystem::remove(tree_.path("d"));
  while (listing->next())
    EXPECT_TRUE(listing->name() == "." || listing->name() == "..");
}

TEST_F(Listing, OfANamedLinkIsThatOfItsTarget) {
  tree_.file("real/inner");
  tree_.link("link", "real");
  const auto listing = files_.list(tree_.programPath("link"), plainFiles);
  ASSERT_TRUE(listing->next());
  EXPECT_EQ(listing->name(), "inner");
}

}  // namespace
}  // namespace quernstoke
