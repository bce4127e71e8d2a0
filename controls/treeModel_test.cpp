#include "controls/treeModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quernstoke {
namespace {

using testing::ElementsAre;

TreeNode named(const std::string& text) {
  TreeNode node;
  node.key = node.text = text;
  return node;
}

class Screen : public TreeScreen {
 public:
  void treeChanged() override { ++changes; }
  void treeCleared() override { ++clearings; }

  int changes = 0;
  int clearings = 0;
};

class TreeTest : public testing::Test {
 protected:
  TreeTest() {
    tree_.showOn(&screen_);
    tree_.onExpand = [this](TreeNode& node) { expanded_.push_back(node.text); };
  }
  TreeNode& add(TreeNode& parent, const std::string& text) {
    std::vector<TreeNode> one;
    one.push_back(named(text));
    tree_.addChildren(parent, std::move(one));
    return *parent.children.front();
  }

  Screen screen_;
  TreeModel tree_;
  std::vector<std::string> expanded_;
};

TEST_F(TreeTest, IsEmptyUntilItHasARoot) {
  EXPECT_TRUE(tree_.isEmpty());
  TreeNode& root = tree_.addRoot(named("C:"));
  EXPECT_EQ(tree_.root(), &root);
  EXPECT_FALSE(tree_.isEmpty());
}

TEST_F(TreeTest, KeepsChildrenInTheOrderOfTheirTexts) {
  TreeNode& root = tree_.addRoot(named("C:"));
  std::vector<TreeNode> children;
  for (const char* text : {"b", "a", "\u00E4", "B", "a b"})
    children.push_back(named(text));
  tree_.addChildren(root, std::move(children));
  std::vector<std::string> texts;
  for (const auto& child : root.children) {
    EXPECT_EQ(child->position, static_cast<int>(texts.size()));
    EXPECT_EQ(child->parent, &root);
    texts.push_back(child->text);
  }
  EXPECT_THAT(texts, ElementsAre("B", "a", "a b", "b", "\u00E4"));
}

TEST_F(TreeTest, FullPathIsOfTheTextsFromTheRoot) {
  TreeNode& root = tree_.addRoot(named("C:"));
  EXPECT_EQ(fullPath(root), "C:");
  EXPECT_EQ(fullPath(add(add(root, "home"), "ann")), "C:\\home\\ann");
}

TEST_F(TreeTest, TellsOfAnExpansionOnceUntilTheNodeIsCollapsed) {
  TreeNode& root = tree_.addRoot(named("C:"));
  tree_.expand(root);
  tree_.expand(root);
  EXPECT_THAT(expanded_, ElementsAre("C:"));
  tree_.collapse(root);
  tree_.expand(root);
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:"));
}

TEST_F(TreeTest, ANodeIsExpandedWhenItIsTold) {
  TreeNode& root = tree_.addRoot(named("C:"));
  bool wasExpanded = false;
  tree_.onExpand = [&](TreeNode& node) { wasExpanded = node.expanded; };
  tree_.expand(root);
  EXPECT_TRUE(wasExpanded);
}

TEST_F(TreeTest, NothingIsSelectedInAClearedTree) {
  tree_.select(&tree_.addRoot(named("C:")));
  EXPECT_EQ(tree_.selected(), tree_.root());
  tree_.clear();
  EXPECT_EQ(tree_.selected(), nullptr);
  EXPECT_TRUE(tree_.isEmpty());
}

TEST_F(TreeTest, TellsItsScreenOfEachChange) {
  TreeNode& root = tree_.addRoot(named("C:"));
  EXPECT_EQ(screen_.changes, 1);
  TreeNode& child = add(root, "home");
  EXPECT_EQ(screen_.changes, 2);
  tree_.select(&child);
  EXPECT_EQ(screen_.changes, 3);
  tree_.expand(child);
  EXPECT_EQ(screen_.changes, 4);
  tree_.collapse(child);
  EXPECT_EQ(screen_.changes, 5);
  EXPECT_EQ(screen_.clearings, 0);
  tree_.clear();
  EXPECT_EQ(screen_.clearings, 1);
}

TEST_F(TreeTest, WorksWithoutAScreen) {
  tree_.showOn(nullptr);
  tree_.expand(tree_.addRoot(named("C:")));
  EXPECT_THAT(expanded_, ElementsAre("C:"));
  tree_.clear();
  EXPECT_TRUE(tree_.isEmpty());
}

TEST_F(TreeTest, WorkWaitsUntilItsScreenIsIdle) {
  TreeNode& root = tree_.addRoot(named("C:"));
  screen_.changes = 0;
  std::vector<int> done;
  tree_.whenIdle(root, [&] { done.push_back(1); });
  tree_.whenIdle(root, [&] {
    done.push_back(2);
    tree_.whenIdle(root, [&] { done.push_back(3); });
  });
  EXPECT_THAT(done, ElementsAre());
  EXPECT_EQ(screen_.changes, 2);
  EXPECT_TRUE(tree_.doIdleWork());
  EXPECT_THAT(done, ElementsAre(1));
  while (tree_.doIdleWork()) {
  }
  EXPECT_THAT(done, ElementsAre(1, 2, 3));
}

TEST_F(TreeTest, WorkForANodeIsDoneBeforeItIsExpanded) {
  TreeNode& root = tree_.addRoot(named("C:"));
  TreeNode& child = add(root, "a");
  const auto push = [this](const char* text) {
    return [this, text] { expanded_.emplace_back(text); };
  };
  tree_.whenIdle(root, push("of C:"));
  tree_.whenIdle(child, push("first of a"));
  tree_.whenIdle(child, push("second of a"));
  tree_.expand(child);
  EXPECT_THAT(expanded_, ElementsAre("first of a", "second of a", "a"));
  while (tree_.doIdleWork()) {
  }
  EXPECT_EQ(expanded_.back(), "of C:");
  EXPECT_EQ(expanded_.size(), 4U);
}

TEST_F(TreeTest, WithoutAScreenWorkIsDoneAtOnce) {
  TreeNode& root = tree_.addRoot(named("C:"));
  tree_.showOn(nullptr);
  bool isDone = false;
  tree_.whenIdle(root, [&] { isDone = true; });
  EXPECT_TRUE(isDone);
  EXPECT_FALSE(tree_.doIdleWork());
}

TEST_F(TreeTest, WorkIsForgottenWithTheTree) {
  tree_.whenIdle(tree_.addRoot(named("C:")), [] { FAIL(); });
  tree_.clear();
  EXPECT_FALSE(tree_.doIdleWork());
}

}  // namespace
}  // namespace quernstoke
