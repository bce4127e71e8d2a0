#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quernstoke {

struct TreeNode {
  std::string key;
  std::string text;           // UTF-8.
  std::string image;          // The name of a picture.
  std::string selectedImage;  // The one it has while it is selected; empty for the same.
  std::string tag;            // Of the program's own; nobody sees it.

  // Belong to the tree.
  TreeNode* parent = nullptr;
  int position = 0;  // Among the children of its parent.
  bool expanded = false;
  std::vector<std::unique_ptr<TreeNode>> children;  // Sorted by their text.
};

// The texts from the root down to the node, with "\" between them.
std::string fullPath(const TreeNode& node);

// What shows a tree.
class TreeScreen {
 public:
  virtual ~TreeScreen() = default;

  // There is something new to see, or work for when it is idle. It may still be changed before
  // control returns to the event loop, so nothing is to be read yet.
  virtual void treeChanged() = 0;
  // The nodes are going; they are there until this call returns.
  virtual void treeCleared() = 0;
};

// A tree with one root, whose nodes are read as it is opened.
class TreeModel {
 public:
  // The screen must outlive the tree; nullptr for none.
  void showOn(TreeScreen* screen) { screen_ = screen; }

  bool isEmpty() const { return root_ == nullptr; }
  TreeNode* root() const { return root_.get(); }
  TreeNode& addRoot(TreeNode node);  // REQUIRES: isEmpty().
  // REQUIRES: the parent has none yet.
  void addChildren(TreeNode& parent, std::vector<TreeNode> children);
  void clear();

  TreeNode* selected() const { return selected_; }  // nullptr for none.
  void select(TreeNode* node);

  // Tells onExpand at once, unless the node is expanded already.
  void expand(TreeNode& node);
  void collapse(TreeNode& node);
  std::function<void(TreeNode&)> onExpand;

  // Has work for a node done by the screen when it has nothing else to do, one piece after the
  // other, but before the node is expanded; at once without a screen. What isn't done when the tree
  // is cleared is forgotten, so the work may hold on to nodes.
  void whenIdle(TreeNode& node, std::function<void()> work);
  // One piece of it. False if there is none.
  bool doIdleWork();

 private:
  struct Work {
    TreeNode* node;
    std::function<void()> piece;
  };

  void tellScreen();
  void doIdleWorkFor(const TreeNode& node);

  std::unique_ptr<TreeNode> root_;
  TreeNode* selected_ = nullptr;
  TreeScreen* screen_ = nullptr;
  std::deque<Work> idleWork_;
};

}  // namespace quernstoke
