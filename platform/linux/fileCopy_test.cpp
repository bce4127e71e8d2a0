#include "platform/linux/fileCopy.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/linux/smallDisk.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileCopyTest : public testing::Test {
 protected:
  FileCopyTest() {
    tree_.directory("from");
    tree_.directory("to");
  }
  Descriptor open(const std::string& directory) const {
    return Descriptor(::open(tree_.path(directory).c_str(), O_PATH | O_DIRECTORY));
  }
  int copy(const std::string& path, const std::string& name = "copy") const {
    return copyBelow(open("from"), path, open("to").get(), name);
  }
  struct stat facts(const std::string& path) const {
    struct stat result {};
    EXPECT_EQ(0, ::lstat(tree_.path(path).c_str(), &result));
    return result;
  }
  std::set<std::string> targets() const {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(tree_.path("to")))
      found.insert(entry.path().filename());
    return found;
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
    EXPECT_EQ(0, copy("file"));
    EXPECT_TRUE(content == tree_.content("to/copy"));
    EXPECT_TRUE(content == tree_.content("from/file"));
    std::filesystem::remove(tree_.path("to/copy"));
  }
}

TEST_F(FileCopyTest, KeepsDatesAndPermissions) {
  for (const mode_t mode : {0444u, 0640u, 0755u, 0600u, 04755u}) {
    tree_.file("from/file", "x");
    const timespec times[] = {{1'000'000'000, 0}, {1'234'567'890, 123'456'789}};
    ASSERT_EQ(0, ::chmod(tree_.path("from/file").c_str(), mode));
    ASSERT_EQ(0, ::utimensat(AT_FDCWD, tree_.path("from/file").c_str(), times, 0));
    EXPECT_EQ(0, copy("file"));
    const struct stat copied = facts("to/copy");
    EXPECT_EQ(mode, copied.st_mode & 07777u);
    EXPECT_EQ(1'234'567'890, copied.st_mtim.tv_sec);
    EXPECT_EQ(facts("from/file").st_mtim.tv_nsec, copied.st_mtim.tv_nsec);
    EXPECT_EQ(facts("from/file").st_uid, copied.st_uid);
    std::filesystem::remove(tree_.path("to/copy"));
    std::filesystem::remove(tree_.path("from/file"));
  }
}

TEST_F(FileCopyTest, KeepsExtendedAttributes) {
  tree_.file("from/file", "x");
  if (::setxattr(tree_.path("from/file").c_str(), "user.comment", "words", 5, 0) != 0)
    GTEST_SKIP() << "this file system has no extended attributes";
  EXPECT_EQ(0, copy("file"));
  std::string value(5, ' ');
  EXPECT_EQ(5, ::getxattr(tree_.path("to/copy").c_str(), "user.comment", value.data(), 5));
  EXPECT_EQ("words", value);
}

// A copy belongs to whoever makes it, and must not lend their rights to others.
TEST_F(FileCopyTest, BitsThatLendRightsStayWithTheirOwner) {
  tree_.file("from/file", "x");
  const WithoutPrivileges ordinary(tree_);
  const uid_t user = ::geteuid();
  if (::seteuid(0) != 0) GTEST_SKIP() << "this user has no files of others";
  ASSERT_EQ(0, ::chown(tree_.path("from/file").c_str(), 0, 0));
  ASSERT_EQ(0, ::chmod(tree_.path("from/file").c_str(), 04755));
  ASSERT_EQ(0, ::seteuid(user));
  EXPECT_EQ(0, copy("file"));
  EXPECT_EQ(user, facts("to/copy").st_uid);
  EXPECT_EQ(0755u, facts("to/copy").st_mode & 07777u);
}

TEST_F(FileCopyTest, NeverReplaces) {
  tree_.file("from/file", "new");
  tree_.file("to/copy", "old");
  tree_.link("to/dangling", "nowhere");
  EXPECT_EQ(-EEXIST, copy("file"));
  EXPECT_EQ(-EEXIST, copy("file", "dangling"));
  EXPECT_EQ("old", tree_.content("to/copy"));
  EXPECT_THAT(targets(), ElementsAre("copy", "dangling"));
}

TEST_F(FileCopyTest, TakesTheFileItselfByItsExactPath) {
  tree_.file("from/Sub/File", "x");
  tree_.file("real", "x");
  tree_.link("from/link", tree_.path("real"));
  tree_.link("from/linked", tree_.path("from/Sub"));
  tree_.fifo("from/fifo");
  EXPECT_EQ(-ENOENT, copy("Sub/file"));
  EXPECT_EQ(-ENOTDIR, copy("sub/File"));
  EXPECT_EQ(-ENOTDIR, copy("linked/File"));
  EXPECT_EQ(-ENOENT, copy("link"));
  EXPECT_EQ(-ENOENT, copy("fifo"));
  EXPECT_EQ(-ENOENT, copy("Sub"));
  EXPECT_EQ(-ENOENT, copy(".."));
  EXPECT_THAT(targets(), IsEmpty());
  EXPECT_EQ(0, copy("Sub/File"));
}

TEST_F(FileCopyTest, FileThatMayNotBeReadIsNotCopied) {
  tree_.file("from/file", "x");
  ::chmod(tree_.path("from/file").c_str(), 0);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(-EACCES, copy("file"));
  EXPECT_THAT(targets(), IsEmpty());
}

TEST_F(FileCopyTest, DirectoryThatMayNotBeWrittenGetsNothing) {
  tree_.file("from/file", "x");
  ::chmod(tree_.path("to").c_str(), 0555);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(-EACCES, copy("file"));
  EXPECT_THAT(targets(), IsEmpty());
}

TEST_F(FileCopyTest, FileThatIsTooLongLeavesNothing) {
  tree_.file("from/file", longContent());
  rlimit before{};
  ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, before.rlim_max};
  ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &small));
  const int outcome = copy("file");
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(-EFBIG, outcome);
  EXPECT_THAT(targets(), IsEmpty());
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
  EXPECT_EQ(-EAGAIN, copy("file"));
  EXPECT_THAT(targets(), IsEmpty());
}

TEST_F(FileCopyTest, FullDiskIsLeftAsItWas) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", longContent());
  EXPECT_EQ(-ENOSPC, copy("file"));
  EXPECT_THAT(targets(), IsEmpty());
  tree_.file("from/short", "x");
  EXPECT_EQ(0, copy("short"));  // Nothing holds the room any more.
  EXPECT_EQ("x", tree_.content("to/copy"));
}

TEST_F(FileCopyTest, DiskWithoutADirectoryEntryLeftIsLeftAsItWas) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m,nr_inodes=2");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("to/only", "");
  tree_.file("from/file", "x");
  EXPECT_EQ(-ENOSPC, copy("file"));
  EXPECT_THAT(targets(), ElementsAre("only"));
}

TEST_F(FileCopyTest, CopiesBetweenDisks) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=4m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", longContent());
  EXPECT_EQ(0, copy("file"));
  EXPECT_TRUE(longContent() == tree_.content("to/copy"));
}

TEST_F(FileCopyTest, ReadOnlyDiskGetsNothing) {
  const SmallDisk small(tree_.path("to"), "tmpfs", "size=1m,ro");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("from/file", "x");
  EXPECT_EQ(-EROFS, copy("file"));
}

TEST_F(FileCopyTest, DirectoryThatHasGoneGetsNothing) {
  tree_.file("from/file", "x");
  const Descriptor target = open("to");
  std::filesystem::remove(tree_.path("to"));
  EXPECT_EQ(-ENOENT, copyBelow(open("from"), "file", target.get(), "copy"));
  EXPECT_EQ("x", tree_.content("from/file"));
}

}  // namespace
}  // namespace quernstoke
