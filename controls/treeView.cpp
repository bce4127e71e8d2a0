#include "controls/treeView.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "controls/clickWatch.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

constexpr int slice = 40;  // Milliseconds of work, after which the person comes in again.

TreeNode* nodeOf(const QModelIndex& index) {
  return static_cast<TreeNode*>(index.internalPointer());
}

}  // namespace

// The nodes as the toolkit asks for them. Their number only grows, and each stays where it is,
// until all of them go.
class TreeItems : public QAbstractItemModel {
 public:
  explicit TreeItems(const TreeModel& tree) : tree_(tree) {}

  ImageList images;

  QModelIndex indexOf(const TreeNode* node) const {
    return node == nullptr ? QModelIndex() : createIndex(node->position, 0, node);
  }
  void tellAdded() {
    emit layoutAboutToBeChanged();
    emit layoutChanged();
  }
  void tellCleared() {
    beginResetModel();
    endResetModel();
  }

  QModelIndex index(int row, int column, const QModelIndex& parent) const override {
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    if (!parent.isValid()) return indexOf(tree_.root());
    return indexOf(nodeOf(parent)->children[static_cast<std::size_t>(row)].get());
  }
  QModelIndex parent(const QModelIndex& index) const override {
    return index.isValid() ? indexOf(nodeOf(index)->parent) : QModelIndex();
  }
  int rowCount(const QModelIndex& parent) const override {
    if (!parent.isValid()) return tree_.isEmpty() ? 0 : 1;
    return static_cast<int>(nodeOf(parent)->children.size());
  }
  int columnCount(const QModelIndex& /*parent*/) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const TreeNode& node = *nodeOf(index);
    if (role == Qt::DisplayRole) return qtText(node.text);
    if (role == Qt::DecorationRole) return imageOf(node);
    return {};
  }

 private:
  QIcon imageOf(const TreeNode& node) const {
    const bool isOther = tree_.selected() == &node && !node.selectedImage.empty();
    const auto image = images.find(isOther ? node.selectedImage : node.image);
    return image == images.end() ? QIcon() : image->second;
  }

  const TreeModel& tree_;
};

TreeView::TreeView(QWidget* parent)
    : QTreeView(parent), items_(std::make_unique<TreeItems>(tree_)) {
  setHeaderHidden(true);
  setUniformRowHeights(true);  // A directory may have very many.
  setModel(items_.get());
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  tree_.showOn(this);
  afterChanges_.setSingleShot(true);
  connect(&afterChanges_, &QTimer::timeout, this, &TreeView::showTree);
  whileIdle_.setSingleShot(true);
  connect(&whileIdle_, &QTimer::timeout, this, &TreeView::workWhileIdle);
  connect(this, &QTreeView::expanded, this,
          [this](const QModelIndex& index) { tree_.expand(*nodeOf(index)); });
  connect(this, &QTreeView::collapsed, this,
          [this](const QModelIndex& index) { tree_.collapse(*nodeOf(index)); });
  watchClicks(*this, [this] { takeClick(); });
}

TreeView::~TreeView() = default;

void TreeView::setImageList(ImageList images) {
  items_->images = std::move(images);
  viewport()->update();
}

void TreeView::treeChanged() {
  afterChanges_.start();
}

void TreeView::treeCleared() {
  items_->tellCleared();
}

void TreeView::showEvent(QShowEvent* event) {
  if (afterChanges_.isActive()) showTree();
  QTreeView::showEvent(event);
}

void TreeView::showTree() {
  afterChanges_.stop();
  items_->tellAdded();
  if (!tree_.isEmpty()) showExpanded(*tree_.root());
  showSelected();
  whileIdle_.start();
}

// The work at hand may show a message, under which the event loop runs on.
void TreeView::workWhileIdle() {
  if (working_) return;
  const QScopedValueRollback working(working_, true);
  QElapsedTimer time;
  time.start();
  while (tree_.doIdleWork())
    if (time.hasExpired(slice)) return whileIdle_.start();
}

void TreeView::showExpanded(const TreeNode& node) {
  if (node.expanded) setExpanded(items_->indexOf(&node), true);
  for (const auto& child : node.children)
    showExpanded(*child);
}

// The person's own selection is there already.
void TreeView::showSelected() {
  const QModelIndex selected = items_->indexOf(tree_.selected());
  if (!selected.isValid() || selectionModel()->isSelected(selected)) return;
  showing_ = true;
  setCurrentIndex(selected);
  showing_ = false;
  scrollTo(selected);
}

void TreeView::takeClick() {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  if (showing_ || selected.isEmpty()) return;
  TreeNode* const node = nodeOf(selected.first());
  tree_.select(node);
  emit nodeClick(node);
}

// As wide as the widest node in view, and never so narrow that a click beside a name goes astray.
int TreeView::sizeHintForColumn(int column) const {
  return std::max(QTreeView::sizeHintForColumn(column), viewport()->width());
}

// The key that would open all that lies below a node.
void TreeView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Asterisk) QTreeView::keyPressEvent(event);
}

}  // namespace quernstoke
