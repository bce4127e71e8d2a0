#include "controls/treeModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quernstoke {

std::string fullPath(const TreeNode& node) {
  return node.parent == nullptr ? node.text : fullPath(*node.parent) + "\\" + node.text;
}

TreeNode& TreeModel::addRoot(TreeNode node) {
  root_ = std::make_unique<TreeNode>(std::move(node));
  tellScreen();
  return *root_;
}

void TreeModel::addChildren(TreeNode& parent, std::vector<TreeNode> children) {
  std::sort(children.begin(), children.end(),
            [](const TreeNode& a, const TreeNode& b) { return a.text < b.text; });
  parent.children.reserve(children.size());
  for (TreeNode& child : children) {
    child.parent = &parent;
    child.position = static_cast<int>(parent.children.size());
    parent.children.push_back(std::make_unique<TreeNode>(std::move(child)));
  }
  tellScreen();
}

void TreeModel::clear() {
  selected_ = nullptr;
  idleWork_.clear();
  const std::unique_ptr<TreeNode> going = std::move(root_);
  if (screen_) screen_->treeCleared();
}

void TreeModel::select(TreeNode* node) {
  selected_ = node;
  tellScreen();
}

void TreeModel::expand(TreeNode& node) {
  if (std::exchange(node.expanded, true)) return;
  doIdleWorkFor(node);
  if (onExpand) onExpand(node);
  tellScreen();
}

void TreeModel::collapse(TreeNode& node) {
  node.expanded = false;
  tellScreen();
}

void TreeModel::whenIdle(TreeNode& node, std::function<void()> work) {
  if (screen_ == nullptr) return work();
  idleWork_.push_back({&node, std::move(work)});
  tellScreen();
}

bool TreeModel::doIdleWork() {
  if (idleWork_.empty()) return false;
  const Work work = std::move(idleWork_.front());
  idleWork_.pop_front();
  work.piece();
  return true;
}

void TreeModel::doIdleWorkFor(const TreeNode& node) {
  const auto isForNode = [&](const Work& work) { return work.node == &node; };
  std::vector<Work> found;
  std::copy_if(idleWork_.begin(), idleWork_.end(), std::back_inserter(found), isForNode);
  std::erase_if(idleWork_, isForNode);
  for (const Work& work : found)
    work.piece();
}

void TreeModel::tellScreen() {
  if (screen_) screen_->treeChanged();
}

}  // namespace quernstoke
