#include "platform/linux/fileCopy.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

#include "platform/linux/limitedFileSize.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/smallDisk.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "testing/expectFailure.h"

namespace {

// What sees a call to the system before it is carried out. What it returns, unless it is 0, is the
// error with which the call then fails.
std::function<int(int file)> beforeSync;
std::function<int()> beforeReserving;
std::function<int(int flags)> beforeLinking;

int refused(int error) {
  errno = error;
  return -1;
}

}  // namespace

// Defined here, these stand in the place of the C library's.
extern "C" int fsync(int file) {
  const int error = beforeSync ? beforeSync(file) : 0;
  return error != 0 ? refused(error) : static_cast<int>(::syscall(SYS_fsync, file));
}
extern "C" int fallocate(int file, int mode, off_t offset, off_t length) {
  const int error = beforeReserving ? beforeReserving() : 0;
  return error != 0 ? refused(error)
                    : static_cast<int>(::syscall(SYS_fallocate, file, mode, offset, length));
}
extern "C" int linkat(int from, const char* oldName, int to, const char* newName,
                      int flags) noexcept {
  const int error = beforeLinking ? beforeLinking(flags) : 0;
  return error != 0 ? refused(error)
                    : static_cast<int>(::syscall(SYS_linkat, from, oldName, to, newName, flags));
}

namespace quernstoke {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class FileCopyTest : public testing::Test {
 protected:
  FileCopyTest() {
    tree_.directory("from");
    tree_.directory("to");
  }
  Descriptor open(const std::string& directory) const {
    return Descriptor(::open(tree_.path(directory).c_str(), O_PATH | O_DIRECTORY));
  }
  int copy(const std::string& path, const std::string& name = "copy",
           const std::string& directory = "to") const {
    CopiedFile ignored;
    return copyBelow(open("from"), path, open(directory).get(), name, ignored);
  }
  struct stat facts(const std::string& path) const {
    struct stat result {};
    EXPECT_EQ(::lstat(tree_.path(path).c_str(), &result), 0);
    return result;
  }
  ~FileCopyTest() override {
    beforeSync = nullptr;
    beforeReserving = nullptr;
    beforeLinking = nullptr;
  }
  static struct stat factsOf(int file) {
    struct stat result {};
    EXPECT_EQ(::fstat(file, &result), 0);
    return result;
  }
  static bool isDirectory(int file) { return S_ISDIR(factsOf(file).st_mode); }
  // Lets `change` happen when the content is copied, and before that is looked at again.
  static void afterCopying(const std::function<void()>& change) {
    beforeSync = [change](int file) {
      if (!isDirectory(file)) change();
      return 0;
    };
  }
  void expectChanged() const {
    EXPECT_EQ(copy("file"), -changedMeanwhile);
    EXPECT_THAT(tree_.names("to"), IsEmpty());
  }
  // Longer than what is copied at a time.
  static std::string longContent() {
    std::string content;
    for (int i = 0; content.size() < 2'500'000; ++i)
      content += std::to_string(i) + '\n';
    return content;
  }

  TemporaryTree tree_;
};

TEST_F(FileCopyTest, CopiesContentOfAnyLength) {
  for (const std::string& content : {std::string(), std::string("x"), longContent()}) {
    tree_.file("from/file", content);
    EXPECT_EQ(copy("file"), 0);
    EXPECT_TRUE(content == tree_.content("to/copy"));
    EXPECT_TRUE(content == tree_.content("from/file"));
    std::filesystem::remove(tree_.path("to/copy"));
  }
}

TEST_F(FileCopyTest, KeepsDatesAndPermissions) {
  for (const mode_t mode : {0444u, 0640u, 0755u, 0600u, 04755u}) {
    tree_.file("from/file", "x");
    const timespec times[] = {{1'000'000'000, 0}, {1'234'567'890, 123'456'789}};
    tree_.setMode("from/file", mode);
    ASSERT_EQ(::utimensat(AT_FDCWD, tree_.path("from/file").c_str(), times, 0), 0);
    EXPECT_EQ(copy("file"), 0);
    const struct stat copied = facts("to/copy");
    EXPECT_EQ(copied.st_mode & 07777u, mode);
    EXPECT_EQ(copied.st_mtim.tv_sec, 1'234'567'890);
    EXPECT_EQ(copied.st_mtim.tv_nsec, facts("from/file").st_mtim.tv_nsec);
    EXPECT_EQ(copied.st_uid, facts("from/file").st_uid);
    std::filesystem::remove(tree_.path("to/copy"));
    std::filesystem::remove(tree_.path("from/file"));
  }
}

TEST_F(FileCopyTest, KeepsExtendedAttributes) {
  tree_.file("from/file", "x");
  if (::setxattr(tree_.path("from/file").c_str(), "user.comment", "words", 5, 0) != 0)
    GTEST_SKIP() << "this file system has no extended attributes";
  EXPECT_EQ(copy("file"), 0);
  std::string value(5, ' ');
  EXPECT_EQ(::getxattr(tree_.path("to/copy").c_str(), "user.comment", value.data(), 5), 5);
  EXPECT_EQ(value, "words");
}

// A new owner takes away the rights that a program has been lent.
TEST_F(FileCopyTest, KeepsTheRightsThatAProgramHasBeenLent) {
  constexpr uid_t somebody = 1000;
  // Version 2 of the attribute, with the right to use ports below 1024.
  const std::string rights("\0\0\0\2\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 20);
  const char* const name = "security.capability";
  tree_.file("from/file", "x");
  if (::lchown(tree_.path("from/file").c_str(), somebody, somebody) != 0 ||
      ::setxattr(tree_.path("from/file").c_str(), name, rights.data(), rights.size(), 0) != 0)
    GTEST_SKIP() << "this user may not lend rights";
  EXPECT_EQ(copy("file"), 0);
  EXPECT_EQ(facts("to/copy").st_uid, somebody);
  std::string value(rights.size(), ' ');
  EXPECT_EQ(::getxattr(tree_.path("to/copy").c_str(), name, value.data(), value.size()), 20);
  EXPECT_TRUE(rights == value);
}

// A copy belongs to whoever makes it, and must not lend their rights to others.
TEST_F(FileCopyTest, BitsThatLendRightsStayWithTheirOwner) {
  tree_.file("from/file", "x");
  const WithoutPrivileges ordinary(tree_);
  const uid_t user = ::geteuid();
  if (::seteuid(0) != 0) GTEST_SKIP() << "this user has no files of others";
  ASSERT_EQ(::chown(tree_.path("from/file").c_str(), 0, 0), 0);
  tree_.setMode("from/file", 04755);
  ASSERT_EQ(::seteuid(user), 0);
  EXPECT_EQ(copy("file"), 0);
  EXPECT_EQ(facts("to/copy").st_uid, user);
  EXPECT_EQ(facts("to/copy").st_mode & 07777u, 0755u);
}

TEST_F(FileCopyTest, NeverReplaces) {
  tree_.file("from/file", "new");
  tree_.file("to/copy", "old");
  tree_.link("to/dangling", "nowhere");
  EXPECT_EQ(copy("file"), -EEXIST);
  EXPECT_EQ(copy("file", "dangling"), -EEXIST);
  EXPECT_EQ(tree_.content("to/copy"), "old");
  EXPECT_THAT(tree_.names("to"), ElementsAre("copy", "dangling"));
}

TEST_F(FileCopyTest, TakesTheFileItselfByItsExactPath) {
  tree_.file("from/Sub/File", "x");
  tree_.file("real", "x");
  tree_.link("from/link", tree_.path("real"));
  tree_.link("from/linked", tree_.path("from/Sub"));
  tree_.fifo("from/fifo");
  EXPECT_EQ(copy("Sub/file"), -ENOENT);
  EXPECT_EQ(copy("sub/File"), -ENOTDIR);
  EXPECT_EQ(copy("linked/File"), -ENOTDIR);
  EXPECT_EQ(copy("link"), -ENOENT);
  EXPECT_EQ(copy("fifo"), -ENOENT);
  EXPECT_EQ(copy("Sub"), -ENOENT);
  EXPECT_EQ(copy(".."), -ENOENT);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
  EXPECT_EQ(copy("Sub/File"), 0);
}

TEST_F(FileCopyTest, FileThatMayNotBeReadIsNotCopied) {
  tree_.file("from/file", "x");
  tree_.setMode("from/file", 0);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(copy("file"), -EACCES);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
}

TEST_F(FileCopyTest, DirectoryThatMayNotBeWrittenGetsNothing) {
  tree_.file("from/file", "x");
  tree_.setMode("to", 0555);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(copy("file"), -EACCES);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
}

TEST_F(FileCopyTest, FileThatIsTooLongLeavesNothing) {
  tree_.file("from/file", longContent());
  {
    const LimitedFileSize limit(1000);
    EXPECT_EQ(copy("file"), -EFBIG);
  }
  EXPECT_THAT(tree_.names("to"), IsEmpty());
  EXPECT_TRUE(longContent() == tree_.content("from/file"));
}

// Appends to a file every moment, in the midst of whatever else is done.
class RestlessWriter {
 public:
  explicit RestlessWriter(const std::string& path) {
    file_ = ::open(path.c_str(), O_WRONLY | O_APPEND);
    struct sigaction action {};
    action.sa_handler = [](int) { (void)!::write(file_, "x", 1); };
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGALRM, &action, &before_);
    const itimerval often{{0, 200}, {0, 200}};
    ::setitimer(ITIMER_REAL, &often, nullptr);
  }
  ~RestlessWriter() {
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before_, nullptr);
    ::close(file_);
  }
  RestlessWriter(const RestlessWriter&) = delete;
  RestlessWriter& operator=(const RestlessWriter&) = delete;

 private:
  static inline int file_ = -1;
  struct sigaction before_ {};
};

TEST_F(FileCopyTest, FileThatChangesMeanwhileIsNotCopied) {
  tree_.file("from/file", std::string(30'000'000, 'x'));
  const RestlessWriter writer(tree_.path("from/file"));
  EXPECT_EQ(copy("file"), -changedMeanwhile);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
}

TEST_F(FileCopyTest, FileThatIsWrittenOverMeanwhileIsNotCopied) {
  tree_.file("from/file", "content");
  tree_.waitForTheNextTick("from/file");
  afterCopying([&] { tree_.file("from/file", "another"); });
  expectChanged();
  EXPECT_EQ(tree_.content("from/file"), "another");
}

TEST_F(FileCopyTest, ChangeIsToldAsSuch) {
  tree_.file("from/file", "content");
  tree_.waitForTheNextTick("from/file");
  afterCopying([&] { tree_.file("from/file", "another"); });
  LinuxFileSystem files{DriveTable()};
  EXPECT_FAILURE(fileChanged,
                 files.copyWalked(tree_.programPath("from/file"), tree_.programPath("from"),
                                  tree_.programPath("to/copy")));
}

TEST_F(FileCopyTest, DateThatIsPutBackHidesNoChange) {
  tree_.file("from/file", "content");
  tree_.waitForTheNextTick("from/file");
  const struct stat before = facts("from/file");
  afterCopying([&] {
    tree_.file("from/file", "another");
    const timespec times[] = {before.st_atim, before.st_mtim};
    EXPECT_EQ(::utimensat(AT_FDCWD, tree_.path("from/file").c_str(), times, 0), 0);
  });
  expectChanged();
}

TEST_F(FileCopyTest, OtherFileInItsPlaceIsNotTakenForIt) {
  tree_.file("from/file", "content");
  tree_.file("other", "another");
  const timespec times[] = {facts("from/file").st_atim, facts("from/file").st_mtim};
  ASSERT_EQ(::utimensat(AT_FDCWD, tree_.path("other").c_str(), times, 0), 0);
  afterCopying([&] { std::filesystem::rename(tree_.path("other"), tree_.path("from/file")); });
  expectChanged();
}

TEST_F(FileCopyTest, FileThatIsCutMeanwhileIsNotCopied) {
  tree_.file("from/file", "content");
  beforeReserving = [&] {
    std::filesystem::resize_file(tree_.path("from/file"), 3);
    return 0;
  };
  expectChanged();
}

TEST_F(FileCopyTest, FileThatGoesMeanwhileIsNotCopied) {
  tree_.file("from/file", "content");
  afterCopying([&] { std::filesystem::remove(tree_.path("from/file")); });
  EXPECT_EQ(copy("file"), -ENOENT);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
}

// What reaches the disk.

TEST_F(FileCopyTest, ContentIsOnTheDiskBeforeItHasItsName) {
  tree_.file("from/file", "content");
  int syncs = 0;
  afterCopying([&] {
    ++syncs;
    EXPECT_THAT(tree_.names("to"), Not(Contains("copy")));
  });
  EXPECT_EQ(copy("file"), 0);
  EXPECT_EQ(syncs, 1);
}

// The directories may be as new as the copy.
TEST_F(FileCopyTest, WayToTheCopyIsBroughtToTheDisk) {
  tree_.file("from/file", "content");
  tree_.directory("to/new/newer");
  std::vector<ino_t> synced;
  beforeSync = [&](int file) {
    if (isDirectory(file)) {
      EXPECT_TRUE(tree_.exists("to/new/newer/copy"));
      synced.push_back(factsOf(file).st_ino);
    }
    return 0;
  };
  EXPECT_EQ(copy("file", "copy", "to/new/newer"), 0);
  ASSERT_GE(synced.size(), 4u);
  synced.resize(4);
  EXPECT_THAT(synced, ElementsAre(facts("to/new/newer").st_ino, facts("to/new").st_ino,
                                  facts("to").st_ino, facts(".").st_ino));
}

TEST_F(FileCopyTest, OtherDisksOnTheWayAreNotWaitedFor) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", "content");
  tree_.directory("to/new");
  std::vector<dev_t> synced;
  beforeSync = [&](int file) {
    synced.push_back(factsOf(file).st_dev);
    return 0;
  };
  EXPECT_EQ(copy("file", "copy", "to/new"), 0);
  EXPECT_THAT(synced, ElementsAre(facts("to").st_dev, facts("to").st_dev, facts("to").st_dev));
}

TEST_F(FileCopyTest, WayThatMayNotBeReadIsNoHindrance) {
  tree_.file("from/file", "content");
  tree_.directory("to/new");
  tree_.setMode("to", 0311);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(copy("file", "copy", "to/new"), 0);
  EXPECT_EQ(tree_.content("to/new/copy"), "content");
  tree_.setMode("to", 0755);
}

TEST_F(FileCopyTest, CopyThatDoesNotReachTheDiskIsTakenBack) {
  tree_.file("from/file", "content");
  for (const std::string path : {"", "to", "."}) {
    SCOPED_TRACE(path);
    int refusals = 0;
    beforeSync = [&](int file) {
      const bool isIt =
          path.empty() ? !isDirectory(file) : factsOf(file).st_ino == facts(path).st_ino;
      refusals += isIt ? 1 : 0;
      return isIt ? EIO : 0;
    };
    EXPECT_EQ(copy("file"), -EIO);
    EXPECT_EQ(refusals, 1);
    EXPECT_THAT(tree_.names("to"), IsEmpty());
    EXPECT_EQ(tree_.content("from/file"), "content");
  }
}

TEST_F(FileCopyTest, OnlyTheCopyItselfIsTakenBack) {
  tree_.file("from/file", "content");
  tree_.file("other", "another");
  beforeSync = [&](int file) {
    if (!isDirectory(file)) return 0;
    std::filesystem::rename(tree_.path("other"), tree_.path("to/copy"));
    return EIO;
  };
  EXPECT_EQ(copy("file"), -EIO);
  EXPECT_EQ(tree_.content("to/copy"), "another");
}

TEST_F(FileCopyTest, DirectoryWithNothingToWriteIsOnTheDisk) {
  tree_.file("from/file", "content");
  beforeSync = [](int file) { return isDirectory(file) ? EINVAL : 0; };
  EXPECT_EQ(copy("file"), 0);
}

TEST_F(FileCopyTest, CopyThatCannotBeNamedIsMadeWithAName) {
  tree_.file("from/file", longContent());
  int refusals = 0;
  beforeLinking = [&](int flags) {
    if ((flags & AT_SYMLINK_FOLLOW) == 0) return 0;
    ++refusals;
    return EXDEV;
  };
  EXPECT_EQ(copy("file"), 0);
  EXPECT_THAT(tree_.names("to"), ElementsAre("copy"));
  EXPECT_TRUE(longContent() == tree_.content("to/copy"));
  if (refusals == 0) GTEST_SKIP() << "this file system has no files without names";
}

TEST_F(FileCopyTest, NameThatIsTakenIsNotTriedAgain) {
  tree_.file("from/file", "content");
  int syncs = 0;
  afterCopying([&] {
    ++syncs;
    tree_.file("to/copy", "another");
  });
  EXPECT_EQ(copy("file"), -EEXIST);
  EXPECT_EQ(syncs, 1);
  EXPECT_THAT(tree_.names("to"), ElementsAre("copy"));
  EXPECT_EQ(tree_.content("to/copy"), "another");
}

TEST_F(FileCopyTest, FullDiskIsLeftAsItWas) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", longContent());
  EXPECT_EQ(copy("file"), -ENOSPC);
  EXPECT_THAT(tree_.names("to"), IsEmpty());
  tree_.file("from/short", "x");
  EXPECT_EQ(copy("short"), 0);  // Nothing holds the room any more.
  EXPECT_EQ(tree_.content("to/copy"), "x");
}

TEST_F(FileCopyTest, DiskWithoutADirectoryEntryLeftIsLeftAsItWas) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m,nr_inodes=2");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("to/only", "");
  tree_.file("from/file", "x");
  EXPECT_EQ(copy("file"), -ENOSPC);
  EXPECT_THAT(tree_.names("to"), ElementsAre("only"));
}

TEST_F(FileCopyTest, CopiesBetweenDisks) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=4m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", longContent());
  EXPECT_EQ(copy("file"), 0);
  EXPECT_TRUE(longContent() == tree_.content("to/copy"));
}

TEST_F(FileCopyTest, ReadOnlyDiskGetsNothing) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m,ro");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", "x");
  EXPECT_EQ(copy("file"), -EROFS);
}

TEST_F(FileCopyTest, DirectoryThatHasGoneGetsNothing) {
  tree_.file("from/file", "x");
  const Descriptor target = open("to");
  std::filesystem::remove(tree_.path("to"));
  CopiedFile ignored;
  EXPECT_EQ(copyBelow(open("from"), "file", target.get(), "copy", ignored), -ENOENT);
  EXPECT_EQ(tree_.content("from/file"), "x");
}

}  // namespace
}  // namespace quernstoke
