#pragma once

#include <QIcon>
#include <QTimer>
#include <QTreeView>
#include <map>
#include <memory>
#include <string>

#include "controls/treeModel.h"

namespace quernstoke {

class TreeItems;

using ImageList = std::map<std::string, QIcon>;  // Pictures by name.

// Shows a TreeModel, which it owns. The person opens, closes and selects nodes by mouse and
// keyboard; no way opens more than one node at once, for each has to be read.
class TreeView : public QTreeView, private TreeScreen {
  Q_OBJECT

 public:
  explicit TreeView(QWidget* parent = nullptr);
  ~TreeView() override;

  TreeModel& tree() { return tree_; }
  void setImageList(ImageList images);

 signals:
  // The person has selected the node, or has clicked the one that is selected.
  void nodeClick(quernstoke::TreeNode* node);

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  int sizeHintForColumn(int column) const override;

 private:
  void treeChanged() override;
  void treeCleared() override;

  void showTree();
  void showExpanded(const TreeNode& node);
  void showSelected();
  void workWhileIdle();
  void takeClick();

  TreeModel tree_;
  std::unique_ptr<TreeItems> items_;
  QTimer afterChanges_;
  QTimer whileIdle_;
  bool showing_ = false;  // What the program has selected.
  bool working_ = false;
};

}  // namespace quernstoke
