#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <vector>

#include "core/procedure.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/temporaryTree.h"
#include "testing/expectFailure.h"
#include "testing/memoryFileSystem.h"

namespace quernstoke {
namespace {

// The two file systems, each with an empty directory. The engine's tests hold for the real disk as
// far as the one in memory answers as it does.

struct RealDisk {
  void makeReadOnly(const std::string& relative) const { tree.setMode(relative, 0444); }

  TemporaryTree tree;
  LinuxFileSystem files{DriveTable()};
  std::string root = tree.programPath();
};

struct MemoryDisk {
  MemoryDisk() { files.directory(root); }
  void makeReadOnly(const std::string& relative) {
    files.setAttributes(root + "\\" + relative, attributeReadOnly);
  }

  MemoryFileSystem files;
  std::string root = "C:\\root";
};

template <class Disk>
class FileSystemContractTest : public testing::Test {
 protected:
  std::string at(const std::string& relative) const { return disk_.root + "\\" + relative; }

  void makeFile(const std::string& relative, std::string_view content = {}) {
    const FileNumber file = files_.open(at(relative), OpenMode::output);
    files_.write(file, content);
    files_.close(file);
  }
  std::string content(const std::string& relative) {
    std::string bytes(100, ' ');
    const FileNumber file = files_.open(at(relative), OpenMode::sharedBinary);
    bytes.resize(files_.read(file, bytes));
    files_.close(file);
    return bytes;
  }
  // As a walk from the root would have found it just now.
  void removeWalked(const std::string& relative, const std::string& root) {
    const std::string path = at(relative);
    WalkedFile file{path, root, 0, {}};
    ignoringFailure([&] {
      file.size = files_.length(path);
      file.modified = files_.modified(path);
    });
    files_.removeWalked(file);
  }
  std::set<std::string> names(int mask) {
    std::set<std::string> found;
    for (const auto listing = files_.list(disk_.root, mask); listing->next();)
      found.emplace(listing->name());
    return found;
  }

  Disk disk_;
  FileSystem& files_ = disk_.files;
  const std::vector<OpenMode> readingModes_ = {OpenMode::input, OpenMode::sharedBinary};
  const std::vector<OpenMode> writingModes_ = {OpenMode::output, OpenMode::binary,
                                               OpenMode::update};
};

using FileSystems = testing::Types<RealDisk, MemoryDisk>;
TYPED_TEST_SUITE(FileSystemContractTest, FileSystems);

TYPED_TEST(FileSystemContractTest, MissingFileIsToldFromAMissingWayToIt) {
  FileSystem& files = this->files_;
  this->makeFile("file");
  const auto expectFailures = [&](const std::string& path, FailureNumber number) {
    SCOPED_TRACE(path);
    EXPECT_EQ(failureOf([&] { files.attributes(path); }), number);
    EXPECT_EQ(failureOf([&] { files.clearAttributes(path); }), number);
    EXPECT_EQ(failureOf([&] { files.length(path); }), number);
    EXPECT_EQ(failureOf([&] { files.modified(path); }), number);
    EXPECT_EQ(failureOf([&] { files.remove(path); }), number);
    EXPECT_EQ(failureOf([&] { files.rename(path, this->at("new")); }), number);
    for (const OpenMode mode : {OpenMode::input, OpenMode::sharedBinary, OpenMode::update})
      EXPECT_EQ(failureOf([&] { files.open(path, mode); }), number);
  };
  expectFailures(this->at("none"), FailureNumber::fileNotFound);
  expectFailures(this->at("none\\file"), FailureNumber::pathNotFound);
  expectFailures(this->at("file\\below"), FailureNumber::pathNotFound);
  expectFailures("Q:\\file", FailureNumber::pathNotFound);
  EXPECT_FAILURE(pathNotFound, files.rename(this->at("file"), this->at("none\\file")));
  for (const OpenMode mode : {OpenMode::output, OpenMode::binary})
    EXPECT_FAILURE(pathNotFound, files.open(this->at("none\\file"), mode));
}

TYPED_TEST(FileSystemContractTest, MissingDirectoryIsAPathNotFound) {
  this->makeFile("file");
  for (const std::string& path :
       {this->at("none"), this->at("none\\below"), this->at("file\\below")}) {
    SCOPED_TRACE(path);
    EXPECT_FAILURE(pathNotFound, this->files_.list(path, attributeDirectory));
    EXPECT_FAILURE(pathNotFound, this->files_.removeDirectory(path));
    EXPECT_FAILURE(pathNotFound, this->files_.makeDirectory(path + "\\deeper"));
    EXPECT_FALSE(this->files_.canEnter(path));
  }
  EXPECT_FAILURE(pathNotFound, this->files_.list(this->at("file"), attributeDirectory));
  EXPECT_FALSE(this->files_.canEnter(this->at("file")));
}

TYPED_TEST(FileSystemContractTest, PathThatExistsIsNotMadeAgain) {
  this->makeFile("file");
  this->files_.makeDirectory(this->at("Made"));
  for (const char* name : {"Made", "made", "file"})
    EXPECT_FAILURE(pathFileAccess, this->files_.makeDirectory(this->at(name))) << name;
  EXPECT_TRUE(this->files_.canEnter(this->at("MADE")));
}

TYPED_TEST(FileSystemContractTest, OnlyEmptyDirectoriesAreRemoved) {
  this->files_.makeDirectory(this->at("made"));
  this->makeFile("made\\file");
  EXPECT_FAILURE(pathFileAccess, this->files_.removeDirectory(this->at("made")));
  EXPECT_FAILURE(pathFileAccess, this->files_.removeDirectory(this->at("made\\file")));
  EXPECT_FAILURE(pathFileAccess, this->files_.remove(this->at("made")));
  this->files_.remove(this->at("made\\file"));
  this->files_.removeDirectory(this->at("MADE"));
  EXPECT_FALSE(this->files_.canEnter(this->at("made")));
}

TYPED_TEST(FileSystemContractTest, ReadOnlyFileIsKeptUntilItsAttributesAreCleared) {
  this->makeFile("file", "kept");
  this->disk_.makeReadOnly("file");
  EXPECT_EQ(this->files_.attributes(this->at("file")), attributeReadOnly | attributeArchive);
  for (const OpenMode mode : this->writingModes_)
    EXPECT_FAILURE(pathFileAccess, this->files_.open(this->at("file"), mode));
  EXPECT_FAILURE(pathFileAccess, this->files_.remove(this->at("file")));
  for (const OpenMode mode : this->readingModes_)
    this->files_.close(this->files_.open(this->at("file"), mode));
  EXPECT_EQ(this->content("file"), "kept");

  this->files_.clearAttributes(this->at("file"));
  EXPECT_EQ(this->files_.attributes(this->at("file")), attributeArchive);
  this->makeFile("file", "new");
  EXPECT_EQ(this->content("file"), "new");
}

TYPED_TEST(FileSystemContractTest, WalkedFileIsRemovedAlsoReadOnly) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File");
  this->removeWalked("Dir\\File", this->disk_.root);
  EXPECT_FAILURE(fileNotFound, this->files_.attributes(this->at("Dir\\File")));
  this->makeFile("File");
  this->disk_.makeReadOnly("File");
  this->removeWalked("File", this->disk_.root);
  EXPECT_FAILURE(fileNotFound, this->files_.attributes(this->at("File")));
}

TYPED_TEST(FileSystemContractTest, WalkedFileIsTakenByItsExactNames) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File");
  const auto remove = [&](const std::string& name, const std::string& root) {
    this->removeWalked(name, root);
  };
  const std::string& root = this->disk_.root;
  EXPECT_FAILURE(fileNotFound, remove("Dir\\file", root));
  EXPECT_FAILURE(fileNotFound, remove("Dir\\file", this->at("Dir")));
  EXPECT_FAILURE(pathNotFound, remove("dir\\File", root));
  EXPECT_FAILURE(fileNotFound, remove("Dir\\other", root));
  EXPECT_FAILURE(pathNotFound, remove("other\\File", root));
  EXPECT_FAILURE(pathNotFound, remove("Dir\\File\\inner", root));
  EXPECT_FAILURE(fileNotFound, remove("Dir", root));
  EXPECT_FAILURE(pathNotFound, remove("Dir\\File", this->at("Di")));
  EXPECT_FAILURE(pathNotFound, remove("Dir\\File", this->at("none")));
  EXPECT_EQ(this->files_.attributes(this->at("Dir\\File")), attributeArchive);
  remove("dir\\File", this->at("dir"));
  EXPECT_FAILURE(fileNotFound, this->files_.attributes(this->at("Dir\\File")));
}

TYPED_TEST(FileSystemContractTest, WalkedFileIsCopied) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File", "content");
  this->disk_.makeReadOnly("Dir/File");
  this->files_.copyWalked(this->at("Dir\\File"), this->disk_.root, this->at("Copy"));
  EXPECT_EQ(this->content("Copy"), "content");
  EXPECT_EQ(this->content("Dir\\File"), "content");
  EXPECT_EQ(this->files_.modified(this->at("Copy")), this->files_.modified(this->at("Dir\\File")));
  EXPECT_EQ(this->files_.attributes(this->at("Copy")), attributeReadOnly | attributeArchive);
}

TYPED_TEST(FileSystemContractTest, WalkedFileIsCopiedByItsExactNames) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File");
  const auto copy = [&](const std::string& name, const std::string& root) {
    this->files_.copyWalked(this->at(name), root, this->at("Copy"));
  };
  EXPECT_FAILURE(fileNotFound, copy("Dir\\file", this->disk_.root));
  EXPECT_FAILURE(pathNotFound, copy("dir\\File", this->disk_.root));
  EXPECT_FAILURE(fileNotFound, copy("Dir", this->disk_.root));
  EXPECT_FAILURE(pathNotFound, copy("Dir\\File", this->at("Di")));
  EXPECT_FAILURE(pathNotFound, copy("Dir\\File", this->at("none")));
  EXPECT_THAT(this->names(attributeArchive), testing::IsEmpty());
  copy("dir\\File", this->at("dir"));
  EXPECT_THAT(this->names(attributeArchive), testing::ElementsAre("Copy"));
}

TYPED_TEST(FileSystemContractTest, CopyNeverReplaces) {
  this->makeFile("from", "from");
  this->makeFile("To", "to");
  this->files_.makeDirectory(this->at("made"));
  for (const char* name : {"To", "TO", "made", "from"})
    EXPECT_FAILURE(fileAlreadyExists,
                   this->files_.copyWalked(this->at("from"), this->disk_.root, this->at(name)))
        << name;
  EXPECT_FAILURE(pathNotFound,
                 this->files_.copyWalked(this->at("from"), this->disk_.root, this->at("none\\to")));
  EXPECT_EQ(this->content("from"), "from");
  EXPECT_EQ(this->content("To"), "to");
}

TYPED_TEST(FileSystemContractTest, WalkedFileThatHasChangedStays) {
  this->makeFile("file", "content");
  const std::string path = this->at("file");
  const std::string& root = this->disk_.root;
  const DateTime modified = this->files_.modified(path);
  EXPECT_FAILURE(fileChanged, this->files_.removeWalked({path, root, 6, modified}));
  EXPECT_FAILURE(fileChanged, this->files_.removeWalked({path, root, 7, {modified.seconds + 1}}));
  EXPECT_FAILURE(fileChanged, this->files_.removeWalked({path, root, 7, {modified.seconds - 1}}));
  EXPECT_EQ(this->content("file"), "content");
  this->files_.removeWalked({path, root, 7, modified});
  EXPECT_FAILURE(fileNotFound, this->files_.attributes(path));
}

TYPED_TEST(FileSystemContractTest, SameFileIsToldFromItsLikes) {
  this->makeFile("File", "content");
  this->makeFile("other", "content");
  const auto same = [&](const std::string& path, const std::string& other) {
    return this->files_.isSameFile(this->at(path), this->at(other));
  };
  EXPECT_TRUE(same("File", "File"));
  EXPECT_TRUE(same("File", "FILE"));
  EXPECT_FALSE(same("File", "other"));
  EXPECT_FALSE(same("File", "none"));
  EXPECT_FALSE(same("none", "none"));
  EXPECT_FALSE(same("File", "none\\below"));
  EXPECT_FALSE(same("File\\below", "File"));
}

TYPED_TEST(FileSystemContractTest, LookTellsAFileFromItsLikesAndFromWhatItWas) {
  this->makeFile("file", "content");
  this->makeFile("other", "content");
  const auto look = [&](const std::string& name) {
    return this->files_.lookWalked(this->at(name), this->disk_.root);
  };
  const SeenFile before = look("file");
  EXPECT_EQ(before.size, 7);
  EXPECT_EQ(before.modified, this->files_.modified(this->at("file")));
  EXPECT_EQ(look("file"), before);
  EXPECT_NE(look("other").identity, before.identity);
  this->files_.rename(this->at("other"), this->at("another"));
  this->makeFile("file", "longer content");
  EXPECT_NE(look("file"), before);
  EXPECT_EQ(look("file").identity, before.identity);
}

TYPED_TEST(FileSystemContractTest, WalkedFileIsLookedAtByItsExactNames) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File");
  const auto look = [&](const std::string& name) {
    return this->files_.lookWalked(this->at(name), this->disk_.root);
  };
  EXPECT_NO_THROW(look("Dir\\File"));
  EXPECT_FAILURE(fileNotFound, look("Dir\\file"));
  EXPECT_FAILURE(pathNotFound, look("dir\\File"));
  EXPECT_FAILURE(fileNotFound, look("Dir"));
  EXPECT_FAILURE(pathNotFound, look("none\\File"));
}

TYPED_TEST(FileSystemContractTest, FileIsRemovedOnlyAsItWasSeen) {
  const std::string path = this->at("file");
  const std::string& root = this->disk_.root;
  this->makeFile("file", "content");
  this->makeFile("other", "content");
  const SeenFile before = this->files_.lookWalked(path, root);
  EXPECT_FAILURE(fileChanged, this->files_.removeSeen(this->at("other"), root, before));
  EXPECT_FAILURE(fileNotFound, this->files_.removeSeen(this->at("File"), root, before));
  this->makeFile("file", "longer content");
  EXPECT_FAILURE(fileChanged, this->files_.removeSeen(path, root, before));
  EXPECT_EQ(this->content("file"), "longer content");
  this->files_.removeSeen(path, root, this->files_.lookWalked(path, root));
  EXPECT_FAILURE(fileNotFound, this->files_.attributes(path));
}

TYPED_TEST(FileSystemContractTest, CopyTellsWhatItHasSeenAndMade) {
  this->makeFile("file", "content");
  const auto look = [&](const std::string& name) {
    return this->files_.lookWalked(this->at(name), this->disk_.root);
  };
  const WalkedCopy copied =
      this->files_.copyWalked(this->at("file"), this->disk_.root, this->at("copy"));
  EXPECT_EQ(copied.original, look("file"));
  EXPECT_EQ(copied.copy, look("copy"));
}

TYPED_TEST(FileSystemContractTest, NamesAreToldAsTheDiskSpellsThem) {
  this->files_.makeDirectory(this->at("Dir"));
  this->makeFile("Dir\\File");
  const auto name = [&](const std::string& path) {
    return this->files_.nameOnDisk(this->at(path));
  };
  EXPECT_EQ(name("Dir"), "Dir");
  EXPECT_EQ(name("DIR"), "Dir");
  EXPECT_EQ(name("dir\\file"), "File");
  EXPECT_FAILURE(fileNotFound, name("none"));
  EXPECT_FAILURE(pathNotFound, name("none\\file"));
}

TYPED_TEST(FileSystemContractTest, RenameNeverReplaces) {
  this->makeFile("from", "from");
  this->makeFile("To", "to");
  this->files_.makeDirectory(this->at("made"));
  for (const char* name : {"To", "TO", "made", "from"})
    EXPECT_FAILURE(fileAlreadyExists, this->files_.rename(this->at("from"), this->at(name)))
        << name;
  EXPECT_EQ(this->content("from"), "from");
  EXPECT_EQ(this->content("To"), "to");
}

TYPED_TEST(FileSystemContractTest, RenameCanChangeTheCaseOfAName) {
  this->makeFile("name", "content");
  this->files_.rename(this->at("name"), this->at("Name"));
  EXPECT_THAT(this->names(attributeArchive), testing::ElementsAre("Name"));
  this->files_.rename(this->at("NAME"), this->at("NAME"));
  EXPECT_THAT(this->names(attributeArchive), testing::ElementsAre("NAME"));
  EXPECT_EQ(this->content("name"), "content");
}

TYPED_TEST(FileSystemContractTest, RenameMovesBetweenDirectories) {
  this->makeFile("file", "content");
  this->files_.makeDirectory(this->at("made"));
  this->files_.rename(this->at("FILE"), this->at("MADE\\New"));
  EXPECT_EQ(this->content("made\\new"), "content");
  EXPECT_FAILURE(fileNotFound, this->files_.length(this->at("file")));
}

TYPED_TEST(FileSystemContractTest, DirectoriesAreListedOnlyWhenAskedFor) {
  this->makeFile("file");
  this->files_.makeDirectory(this->at("made"));
  EXPECT_THAT(this->names(attributeArchive), testing::ElementsAre("file"));
  EXPECT_THAT(this->names(attributeDirectory), testing::ElementsAre(".", "..", "file", "made"));
}

TYPED_TEST(FileSystemContractTest, ModesSayWhetherAFileIsMadeAndCut) {
  const auto openAndClose = [&](const char* name, OpenMode mode) {
    this->files_.close(this->files_.open(this->at(name), mode));
  };
  openAndClose("new", OpenMode::binary);
  EXPECT_EQ(this->content("new"), "");
  for (const OpenMode mode : {OpenMode::input, OpenMode::binary, OpenMode::sharedBinary,
                              OpenMode::update, OpenMode::output}) {
    this->makeFile("file", "content");
    openAndClose("FILE", mode);
    EXPECT_EQ(this->content("file"), mode == OpenMode::output ? "" : "content");
  }
}

TYPED_TEST(FileSystemContractTest, DirectoryIsNotOpenedAsAFile) {
  this->files_.makeDirectory(this->at("made"));
  for (const OpenMode mode :
       {OpenMode::input, OpenMode::output, OpenMode::binary, OpenMode::update})
    EXPECT_FAILURE(pathFileAccess, this->files_.open(this->at("made"), mode));
  EXPECT_FAILURE(pathFileAccess, this->content("made"));
}

TYPED_TEST(FileSystemContractTest, ModesSayWhetherAFileIsReadOrWritten) {
  this->makeFile("file", "content");
  char byte = ' ';
  for (const OpenMode mode : this->readingModes_) {
    const FileNumber file = this->files_.open(this->at("file"), mode);
    EXPECT_FAILURE(pathFileAccess, this->files_.write(file, "x"));
    this->files_.close(file);
  }
  const FileNumber file = this->files_.open(this->at("file"), OpenMode::output);
  EXPECT_FAILURE(pathFileAccess, this->files_.read(file, {&byte, 1}));
  this->files_.close(file);
}

TYPED_TEST(FileSystemContractTest, ReadPastTheEndGivesWhatThereIs) {
  this->makeFile("file", "12345");
  const FileNumber file = this->files_.open(this->at("file"), OpenMode::sharedBinary);
  std::string bytes(4, ' ');
  EXPECT_EQ(this->files_.openLength(file), 5);
  EXPECT_EQ(this->files_.read(file, bytes), 4U);
  EXPECT_FALSE(this->files_.atEnd(file));
  EXPECT_EQ(this->files_.read(file, bytes), 1U);
  EXPECT_EQ(bytes, "5234");
  EXPECT_TRUE(this->files_.atEnd(file));
  EXPECT_EQ(this->files_.read(file, bytes), 0U);
  this->makeFile("file", "123456789");
  EXPECT_EQ(this->files_.read(file, bytes), 4U);
  EXPECT_EQ(bytes, "6789");
  EXPECT_FALSE(this->files_.atEnd(file));
  EXPECT_EQ(this->files_.read(file, bytes), 0U);
  EXPECT_TRUE(this->files_.atEnd(file));

  this->files_.seek(file, 1);
  EXPECT_FALSE(this->files_.atEnd(file));
  EXPECT_FAILURE(invalidProcedureCall, this->files_.seek(file, -1));
  EXPECT_EQ(this->files_.read(file, bytes), 4U);
  EXPECT_EQ(bytes, "2345");
  EXPECT_FALSE(this->files_.atEnd(file));
  this->files_.close(file);
}

TYPED_TEST(FileSystemContractTest, SequentialReadingIsAtTheEndWithTheLastByte) {
  this->makeFile("file", "12");
  this->makeFile("empty");
  const FileNumber file = this->files_.open(this->at("file"), OpenMode::input);
  char byte = ' ';
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(this->files_.atEnd(file));
    this->files_.read(file, {&byte, 1});
  }
  EXPECT_TRUE(this->files_.atEnd(file));
  this->files_.close(file);
  const FileNumber empty = this->files_.open(this->at("empty"), OpenMode::input);
  EXPECT_TRUE(this->files_.atEnd(empty));
  this->files_.close(empty);
}

TYPED_TEST(FileSystemContractTest, WritingBeyondTheEndFillsTheGap) {
  this->makeFile("file", "12");
  const FileNumber file = this->files_.open(this->at("file"), OpenMode::binary);
  this->files_.seek(file, 4);
  this->files_.write(file, "5");
  this->files_.close(file);
  EXPECT_EQ(this->content("file"), std::string("12\0\0005", 5));
}

TYPED_TEST(FileSystemContractTest, NumbersOfClosedFilesAreGivenOutAgain) {
  this->makeFile("file");
  const auto open = [this] { return this->files_.open(this->at("file"), OpenMode::input); };
  EXPECT_EQ(open(), 1);
  EXPECT_EQ(open(), 2);
  this->files_.close(1);
  EXPECT_FAILURE(invalidProcedureCall, this->files_.close(1));
  EXPECT_FAILURE(invalidProcedureCall, this->files_.seek(0, 0));
  EXPECT_EQ(open(), 1);
  this->files_.close(1);
  this->files_.close(2);
}

}  // namespace
}  // namespace quernstoke
