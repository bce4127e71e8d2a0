#include "mainui/modDirTree.h"

#include <algorithm>

#include "controls/treeModel.h"
#include "platform/platform.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A drive with 20,000 directories, which are empty.
class ManyDirectories : public MemoryFileSystem {
 public:
  static constexpr int count = 20000;

  static std::string nameOf(int number) { return "directory " + std::to_string(number); }

  std::unique_ptr<DirectoryListing> list(std::string_view directory, int /*mask*/) override {
    return std::make_unique<Listing>(directory == "C:" ? count : 0);
  }

 private:
  class Listing : public DirectoryListing {
   public:
    explicit Listing(int left) : left_(left) {}
    bool next() override {
      if (left_ == 0) return false;
      name_ = nameOf(--left_);
      return true;
    }
    std::string_view name() const override { return name_; }
    bool isDirectory() const override { return true; }
    int attributes() override { return attributeDirectory; }
    std::int32_t size() override { return 0; }
    DateTime modified() override { return {}; }

   private:
    int left_;
    std::string name_;
  };
};

class IdleScreen : public TreeScreen {
  void treeChanged() override {}
  void treeCleared() override {}
};

class DirTreeTest : public EngineTest {
 protected:
  DirTreeTest() {
    disk.erase("C:\\Quernstoke");
    tree_.onExpand = [this](TreeNode& node) {
      expanded_.push_back(node.key);
      basLoadTreeNode(tree_, node.key, 0, node);
    };
  }

  void makeDirectories(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
      disk.directory(path);
  }
  void open(const std::string& selectedDir, const std::string& driveBox = "C: [/]") {
    basLoadDirList(tree_, driveBox, selectedDir);
  }
  // Without opening it.
  void read() { open(""); }

  // The keys of all nodes, depth first.
  std::vector<std::string> keys() {
    std::vector<std::string> found;
    if (!tree_.isEmpty()) collectKeys(*tree_.root(), found);
    return found;
  }
  TreeNode& node(const std::string& key) { return *find(*tree_.root(), key); }
  std::string selected() { return tree_.selected() == nullptr ? "" : tree_.selected()->key; }
  std::vector<std::string> listed() const { return disk.paths(DiskAction::list); }

  TreeModel tree_;
  std::vector<std::string> expanded_;

 private:
  static void collectKeys(const TreeNode& node, std::vector<std::string>& into) {
    into.push_back(node.key);
    for (const auto& child : node.children)
      collectKeys(*child, into);
  }
  static TreeNode* find(TreeNode& from, const std::string& key) {
    if (from.key == key) return &from;
    for (const auto& child : from.children)
      if (TreeNode* const found = find(*child, key)) return found;
    return nullptr;
  }
};

// The look-ahead.

TEST_F(DirTreeTest, ADriveOpensWithTwoLevelsRead) {
  makeDirectories({"C:\\a\\b\\c\\d"});
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a", "C:\\a\\b"));
  EXPECT_THAT(listed(), ElementsAre("C:", "C:\\a"));
}

TEST_F(DirTreeTest, AnExpansionReadsTwoLevelsBelowChildrenNotYetRead) {
  makeDirectories({"C:\\a\\b\\c\\d\\e"});
  read();
  disk.calls.clear();
  tree_.expand(node("C:\\a"));
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a", "C:\\a\\b", "C:\\a\\b\\c", "C:\\a\\b\\c\\d"));
  EXPECT_THAT(listed(), ElementsAre("C:\\a\\b", "C:\\a\\b\\c"));
}

TEST_F(DirTreeTest, WhatWasReadIsNotListedAgain) {
  makeDirectories({"C:\\a\\b\\c"});
  read();
  disk.calls.clear();
  tree_.expand(node("C:"));
  EXPECT_THAT(listed(), IsEmpty());
}

// It has no tag by which it could be known as read.
TEST_F(DirTreeTest, ADirectoryWithoutSubDirectoriesIsListedAtEachPass) {
  makeDirectories({"C:\\empty", "C:\\full\\a"});
  read();
  disk.calls.clear();
  tree_.expand(node("C:"));
  EXPECT_THAT(listed(), ElementsAre("C:\\empty"));
  disk.directory("C:\\empty\\new");
  tree_.collapse(node("C:"));
  tree_.expand(node("C:"));
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\empty", "C:\\empty\\new", "C:\\full", "C:\\full\\a"));
}

// When it is idle, and with what a person opens meanwhile.
TEST_F(DirTreeTest, WithAScreenTheSameIsRead) {
  for (const char* path : {"a\\a\\a\\a\\a", "a\\a\\b", "a\\b\\a\\b", "a\\c", "b\\a\\a", "c"})
    disk.directory(std::string("C:\\") + path);
  IdleScreen screen;
  for (const char* path :
       {"", "C:\\a", "C:\\a\\a", "C:\\a\\a\\a", "C:\\a\\b\\a\\b", "C:\\a\\a\\a\\a\\a"}) {
    const auto readOn = [&](TreeScreen* shown) {
      tree_.clear();
      tree_.showOn(shown);
      disk.calls.clear();
      open(path);
      for (const char* opened : {"C:", "C:\\b", "C:\\a"})
        tree_.expand(node(opened));
      while (tree_.doIdleWork()) {
      }
      std::vector<std::string> all = listed();
      for (const std::string& key : keys())
        all.push_back(key + " " + node(key).tag);
      std::sort(all.begin(), all.end());
      return all;
    };
    const std::vector<std::string> withoutScreen = readOn(nullptr);
    EXPECT_EQ(readOn(&screen), withoutScreen) << path;
  }
  tree_.showOn(nullptr);
}

TEST_F(DirTreeTest, ATagSaysThatSubDirectoriesWereRead) {
  makeDirectories({"C:\\a\\b"});
  read();
  EXPECT_EQ(node("C:").tag, "E");
  EXPECT_EQ(node("C:\\a").tag, "E");
  EXPECT_EQ(node("C:\\a\\b").tag, "");
}

TEST_F(DirTreeTest, ATaggedNodeWithoutChildrenIsNotLookedInto) {
  makeDirectories({"C:\\a\\b"});
  read();
  node("C:\\a").children.clear();
  disk.calls.clear();
  tree_.expand(node("C:"));
  EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(DirTreeTest, AListingIsFinishedBeforeTheNextBegins) {
  makeDirectories({"C:\\a", "C:\\b"});
  std::string current;
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::list)
      current = call.path;
    else if (call.action == DiskAction::nextEntry && call.path != current)
      ADD_FAILURE() << call.path;
  };
  read();
  EXPECT_THAT(listed(), ElementsAre("C:", "C:\\a", "C:\\b"));
}

// The nodes.

TEST_F(DirTreeTest, NodesHaveTheirTextsAndImages) {
  makeDirectories({"C:\\Music"});
  read();
  EXPECT_EQ(node("C:").text, "C:");
  EXPECT_EQ(node("C:").image, "Drive");
  EXPECT_EQ(node("C:\\Music").text, "Music");
  EXPECT_EQ(node("C:\\Music").image, "Close");
  EXPECT_EQ(node("C:\\Music").selectedImage, "");
}

TEST_F(DirTreeTest, TheDriveKeepsTheCaseOfTheDriveBox) {
  makeDirectories({"C:\\a"});
  open("C:\\a", "c:");
  EXPECT_THAT(keys(), ElementsAre("c:", "c:\\a"));
  EXPECT_EQ(selected(), "c:\\a");
}

TEST_F(DirTreeTest, OnlyDirectoriesAreNodes) {
  disk.file("C:\\file", "");
  makeDirectories({"C:\\directory"});
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\directory"));
}

TEST_F(DirTreeTest, HiddenAndSystemDirectoriesStayOut) {
  makeDirectories({"C:\\.cache", "C:\\system", "C:\\kept"});
  disk.setAttributes("C:\\.cache", attributeHidden);
  disk.setAttributes("C:\\system", attributeSystem);
  disk.setAttributes("C:\\kept", attributeReadOnly);
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\kept"));
}

TEST_F(DirTreeTest, SiblingsAreSorted) {
  makeDirectories({"C:\\b", "C:\\c", "C:\\a"});
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a", "C:\\b", "C:\\c"));
}

// Opening along a path.

TEST_F(DirTreeTest, OpensAlongThePathAndSelectsItsEnd) {
  makeDirectories({"C:\\home\\ann\\Music\\Old", "C:\\home\\bob"});
  open("C:\\home\\ann\\Music");
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:\\home", "C:\\home\\ann"));
  EXPECT_EQ(selected(), "C:\\home\\ann\\Music");
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\home", "C:\\home\\ann", "C:\\home\\ann\\Music",
                                  "C:\\home\\ann\\Music\\Old", "C:\\home\\bob"));
}

TEST_F(DirTreeTest, ComponentsAreComparedWithoutRegardToCase) {
  makeDirectories({"C:\\Home\\Ann"});
  open("c:\\HOME\\aNN");
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:\\Home"));
  EXPECT_EQ(selected(), "C:\\Home\\Ann");
}

TEST_F(DirTreeTest, ADriveAloneIsOpenedAndNotSelected) {
  makeDirectories({"C:\\a"});
  for (const char* path : {"C:", "C:\\"}) {
    tree_.clear();
    expanded_.clear();
    open(path);
    EXPECT_THAT(expanded_, ElementsAre("C:"));
    EXPECT_EQ(selected(), "");
  }
}

TEST_F(DirTreeTest, APathOfAnotherDriveLeavesTheRootClosed) {
  makeDirectories({"C:\\a"});
  open("D:\\b");
  EXPECT_THAT(expanded_, IsEmpty());
  EXPECT_EQ(selected(), "");
}

TEST_F(DirTreeTest, APathOfAnotherDriveIsFollowedBelowThisOne) {
  makeDirectories({"C:\\a\\b"});
  open("Q:\\a\\b");
  EXPECT_THAT(expanded_, ElementsAre("C:\\a"));
  EXPECT_EQ(selected(), "C:\\a\\b");
}

TEST_F(DirTreeTest, APathThatIsNotThereOpensAsFarAsItLeads) {
  makeDirectories({"C:\\home\\ann"});
  open("C:\\home\\ann\\gone\\x");
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:\\home", "C:\\home\\ann"));
  EXPECT_EQ(selected(), "");
}

// The walk goes on below what it has reached, so that a gap in the middle is passed over.
TEST_F(DirTreeTest, AComponentThatIsNotThereIsPassedOver) {
  makeDirectories({"C:\\home\\ann"});
  open("C:\\gone\\home\\ann");
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:\\home"));
  EXPECT_EQ(selected(), "C:\\home\\ann");
}

TEST_F(DirTreeTest, OfNamesThatDifferInCaseTheFirstIsOpenedAndTheLastSelected) {
  makeDirectories({"C:\\b"});
  // The disk of these tests holds only one of such names.
  tree_.onExpand = [this](TreeNode& node) {
    expanded_.push_back(node.key);
    if (node.parent != nullptr) return;
    node.children.clear();
    std::vector<TreeNode> twins(2);
    twins[0].key = twins[0].text = "A";
    twins[1].key = twins[1].text = "a";
    tree_.addChildren(node, std::move(twins));
  };
  open("C:\\a\\gone");
  EXPECT_THAT(expanded_, ElementsAre("C:", "A"));
  tree_.clear();
  open("C:\\a");
  EXPECT_EQ(selected(), "a");
}

TEST_F(DirTreeTest, WithoutAPathNothingIsOpened) {
  makeDirectories({"C:\\a"});
  open("");
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a"));
  EXPECT_THAT(expanded_, IsEmpty());
}

TEST_F(DirTreeTest, OfAnEmptyDiskThereIsTheDriveAlone) {
  open("C:\\a");
  EXPECT_THAT(keys(), ElementsAre("C:"));
  EXPECT_THAT(expanded_, IsEmpty());
}

// Only the component behind the last backslash has a limit.
TEST_F(DirTreeTest, TheLastComponentIsCut) {
  const std::string longName(999, 'x');
  makeDirectories({"C:\\" + longName});
  open("C:\\" + longName + "yyy");
  EXPECT_EQ(selected(), "C:\\" + longName);
}

// What can't be read.

TEST_F(DirTreeTest, UnreadableDirectoriesAreEmptyWithoutAWord) {
  makeDirectories({"C:\\a\\b", "C:\\locked\\c", "C:\\torn\\d"});
  disk.failOn(DiskAction::list, "C:\\locked", FailureNumber::permissionDenied);
  disk.failOn(DiskAction::nextEntry, "C:\\torn", FailureNumber::deviceError, 4);
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a", "C:\\a\\b", "C:\\locked", "C:\\torn"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirTreeTest, ADriveThatIsNotReadyIsEmptyWithoutAWord) {
  open("Q:\\a", "Q: [/media/cd]");
  EXPECT_THAT(keys(), ElementsAre("Q:"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirTreeTest, AnEntryThatHasGoneIsLeftOut) {
  makeDirectories({"C:\\a", "C:\\gone", "C:\\z"});
  disk.failOn(DiskAction::entryAttributes, "C:\\gone", FailureNumber::fileNotFound);
  read();
  EXPECT_THAT(keys(), ElementsAre("C:", "C:\\a", "C:\\z"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirTreeTest, PlainFilesAreNotLookedAt) {
  makeDirectories({"C:\\a"});
  disk.file("C:\\file", "");
  read();
  EXPECT_EQ(disk.count(DiskAction::entryAttributes, "C:\\file"), 0);
}

TEST_F(DirTreeTest, OtherFailuresAreReported) {
  makeDirectories({"C:\\a"});
  tree_.onExpand = [](TreeNode&) { fail(FailureNumber::subscriptOutOfRange); };
  open("C:\\a");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadDirList", "Subscript out of range(9)")));
}

TEST_F(DirTreeTest, TwentyThousandDirectoriesAreReadInOrder) {
  ManyDirectories many;
  platform.files = &many;
  usePlatform(platform);
  basLoadDirList(tree_, "C:", "C:\\" + ManyDirectories::nameOf(0));
  const auto& children = tree_.root()->children;
  ASSERT_EQ(children.size(), std::size_t{ManyDirectories::count});
  EXPECT_TRUE(std::is_sorted(children.begin(), children.end(),
                             [](const auto& a, const auto& b) { return a->text < b->text; }));
  EXPECT_EQ(tree_.selected()->text, ManyDirectories::nameOf(0));
}

// The file list.

TEST_F(DirTreeTest, FilesOfThePatternsAreListedByName) {
  for (const char* name : {"b.exe", "a.COM", "c.txt", "exe", "d.cmd.txt"})
    disk.file(std::string("C:\\bin\\") + name, "");
  disk.directory("C:\\bin\\z.exe");
  EXPECT_THAT(fileListNames("C:\\bin", "*.exe;*.com"), ElementsAre("a.COM", "b.exe"));
}

TEST_F(DirTreeTest, HiddenFilesAreNotListedAndReadOnlyOnesAre) {
  disk.file("C:\\bin\\.a.exe", "");
  disk.file("C:\\bin\\b.exe", "");
  disk.setAttributes("C:\\bin\\.a.exe", attributeHidden);
  disk.setAttributes("C:\\bin\\b.exe", attributeReadOnly);
  EXPECT_THAT(fileListNames("C:\\bin", "*.exe"), ElementsAre("b.exe"));
}

TEST_F(DirTreeTest, FilesOfADirectoryThatIsNotThereFail) {
  EXPECT_THROW(fileListNames("C:\\gone", "*.exe"), Failure);
}

}  // namespace
}  // namespace quernstoke
