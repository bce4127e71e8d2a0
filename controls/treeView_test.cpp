#include "controls/treeView.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QPixmap>
#include <QThread>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A tree that is read as it is opened: each node but a leaf gets two children, of which the second
// is a leaf.
class TreeViewTest : public testing::Test {
 protected:
  TreeViewTest() {
    view_.resize(300, 400);
    view_.tree().onExpand = [this](TreeNode& node) {
      expanded_.push_back(node.text);
      for (const auto& child : node.children)
        if (child->children.empty() && child->text == "a") addTwo(*child);
    };
    QObject::connect(&view_, &TreeView::nodeClick, &view_,
                     [this](TreeNode* node) { clicked_.push_back(fullPath(*node)); });
    addTwo(view_.tree().addRoot(named("C:")));
  }

  static TreeNode named(const std::string& text) {
    TreeNode node;
    node.text = text;
    return node;
  }
  void addTwo(TreeNode& parent) {
    std::vector<TreeNode> two;
    two.push_back(named("a"));
    two.push_back(named("leaf"));
    view_.tree().addChildren(parent, std::move(two));
  }
  void show() {
    view_.show();
    QCoreApplication::processEvents();
  }
  TreeNode& root() { return *view_.tree().root(); }
  // The texts in view, indented by their depth.
  std::vector<std::string> shown() {
    QCoreApplication::processEvents();
    std::vector<std::string> texts;
    for (QModelIndex index = view_.model()->index(0, 0); index.isValid();
         index = view_.indexBelow(index)) {
      int depth = 0;
      for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        ++depth;
      texts.push_back(std::string(static_cast<std::size_t>(depth), ' ') +
                      index.data().toString().toStdString());
    }
    return texts;
  }
  QModelIndex indexAt(const std::vector<int>& rows) {
    QModelIndex index;
    for (const int row : rows)
      index = view_.model()->index(row, 0, index);
    return index;
  }
  void click(const std::vector<int>& rows) {
    clickMouse(*view_.viewport(), view_.visualRect(indexAt(rows)).center());
    QCoreApplication::processEvents();
  }
  void key(int pressed) {
    typeKey(view_, pressed);
    QCoreApplication::processEvents();
  }
  std::string current() { return view_.currentIndex().data().toString().toStdString(); }

  TreeView view_;
  std::vector<std::string> expanded_;
  std::vector<std::string> clicked_;
};

TEST_F(TreeViewTest, ShowsTheRootClosed) {
  show();
  EXPECT_THAT(shown(), ElementsAre("C:"));
  EXPECT_THAT(expanded_, IsEmpty());
}

TEST_F(TreeViewTest, ShowsWhatTheProgramHasExpandedAndSelected) {
  view_.tree().expand(root());
  view_.tree().expand(*root().children[0]);
  view_.tree().select(root().children[0]->children[1].get());
  show();
  EXPECT_THAT(shown(), ElementsAre("C:", " a", "  a", "  leaf", " leaf"));
  EXPECT_EQ(current(), "leaf");
  EXPECT_THAT(expanded_, ElementsAre("C:", "a"));
  EXPECT_THAT(clicked_, IsEmpty());
}

TEST_F(TreeViewTest, ShowsWhatTheProgramExpandsLater) {
  show();
  view_.tree().expand(root());
  EXPECT_THAT(shown(), ElementsAre("C:", " a", " leaf"));
}

TEST_F(TreeViewTest, AnExpansionByThePersonIsToldAndShowsItsChildrenWithTheirMarks) {
  show();
  view_.expand(indexAt({0}));
  EXPECT_THAT(expanded_, ElementsAre("C:"));
  EXPECT_THAT(shown(), ElementsAre("C:", " a", " leaf"));
  EXPECT_TRUE(view_.model()->hasChildren(indexAt({0, 0})));
  EXPECT_FALSE(view_.model()->hasChildren(indexAt({0, 1})));
}

TEST_F(TreeViewTest, KeysOpenAndCloseNodes) {
  show();
  click({0});
  key(Qt::Key_Right);
  EXPECT_THAT(shown(), ElementsAre("C:", " a", " leaf"));
  key(Qt::Key_Left);
  EXPECT_THAT(shown(), ElementsAre("C:"));
  EXPECT_FALSE(root().expanded);
  key(Qt::Key_Right);
  EXPECT_THAT(expanded_, ElementsAre("C:", "C:"));
}

// All below a node may be a whole disk.
TEST_F(TreeViewTest, NoKeyOpensAllAtOnce) {
  show();
  click({0});
  key(Qt::Key_Asterisk);
  EXPECT_THAT(expanded_, IsEmpty());
}

TEST_F(TreeViewTest, AClickIsToldOnce) {
  view_.tree().expand(root());
  show();
  click({0, 1});
  EXPECT_THAT(clicked_, ElementsAre("C:\\leaf"));
  EXPECT_EQ(view_.tree().selected(), root().children[1].get());
}

TEST_F(TreeViewTest, AClickOnTheSelectedNodeIsTold) {
  view_.tree().select(&root());
  show();
  click({0});
  EXPECT_THAT(clicked_, ElementsAre("C:"));
}

TEST_F(TreeViewTest, ANodeReachedByKeyIsTold) {
  view_.tree().expand(root());
  show();
  click({0});
  key(Qt::Key_Down);
  EXPECT_THAT(clicked_, ElementsAre("C:", "C:\\a"));
}

// The focus alone chooses nothing.
TEST_F(TreeViewTest, TheFocusIsNoClick) {
  show();
  view_.activateWindow();
  view_.setFocus(Qt::TabFocusReason);
  EXPECT_THAT(clicked_, IsEmpty());
  EXPECT_EQ(view_.tree().selected(), nullptr);
}

TEST_F(TreeViewTest, TheMarkThatOpensANodeIsNoClick) {
  show();
  const QRect text = view_.visualRect(indexAt({0}));
  clickMouse(*view_.viewport(), {text.left() - view_.indentation() / 2, text.center().y()});
  EXPECT_THAT(expanded_, ElementsAre("C:"));
  EXPECT_THAT(clicked_, IsEmpty());
}

TEST_F(TreeViewTest, AClearedTreeShowsNothingAndTakesAnotherRoot) {
  view_.tree().expand(root());
  view_.tree().select(root().children[0].get());
  show();
  view_.tree().clear();
  EXPECT_THAT(shown(), IsEmpty());
  view_.tree().addRoot(named("D:"));
  EXPECT_THAT(shown(), ElementsAre("D:"));
  EXPECT_THAT(clicked_, IsEmpty());
}

TEST_F(TreeViewTest, ANodeHasItsImageAndAnotherWhileItIsSelected) {
  QPixmap closed(4, 4);
  closed.fill(Qt::red);
  QPixmap open(4, 4);
  open.fill(Qt::green);
  view_.setImageList({{"Close", QIcon(closed)}, {"Open", QIcon(open)}});
  root().image = "Close";
  const auto colour = [this] {
    return indexAt({0})
        .data(Qt::DecorationRole)
        .value<QIcon>()
        .pixmap(4)
        .toImage()
        .pixelColor(1, 1);
  };
  EXPECT_EQ(colour(), QColor(Qt::red));
  view_.tree().select(&root());
  EXPECT_EQ(colour(), QColor(Qt::red));
  root().selectedImage = "Open";
  EXPECT_EQ(colour(), QColor(Qt::green));
  view_.tree().select(nullptr);
  EXPECT_EQ(colour(), QColor(Qt::red));
}

TEST_F(TreeViewTest, TheSelectedNodeIsScrolledIntoView) {
  std::vector<TreeNode> many;
  for (int i = 0; i < 20000; ++i)
    many.push_back(named("node " + std::to_string(i)));
  TreeNode& a = *root().children[0];
  view_.tree().addChildren(a, std::move(many));
  view_.tree().expand(root());
  view_.tree().expand(a);
  view_.tree().select(a.children.back().get());
  show();
  EXPECT_TRUE(view_.viewport()->rect().contains(view_.visualRect(view_.currentIndex()).center()));
}

TEST_F(TreeViewTest, AWideNodeIsScrolledToAndANarrowOneFillsTheTree) {
  show();
  EXPECT_GE(view_.header()->sectionSize(0), view_.viewport()->width());
  std::vector<TreeNode> wide;
  wide.push_back(named(std::string(300, 'w')));
  view_.tree().addChildren(*root().children[0], std::move(wide));
  view_.tree().expand(root());
  view_.tree().expand(*root().children[0]);
  shown();
  EXPECT_GT(view_.header()->sectionSize(0), view_.viewport()->width());
}

TEST_F(TreeViewTest, ScreenReadersHearTheNodes) {
  show();
  auto* const accessible = QAccessible::queryAccessibleInterface(&view_);
  ASSERT_NE(accessible, nullptr);
  std::vector<std::string> heard;
  for (int i = 0; i < accessible->childCount(); ++i)
    heard.push_back(accessible->child(i)->text(QAccessible::Name).toStdString());
  EXPECT_THAT(heard, testing::Contains("C:"));
}

// Each piece takes longer than the view works in one go.
TEST_F(TreeViewTest, ThePersonComesInBetweenPiecesOfWork) {
  show();
  std::vector<std::string> events;
  for (int piece = 1; piece <= 3; ++piece)
    view_.tree().whenIdle(root(), [&] {
      events.emplace_back("work");
      QThread::msleep(50);
      QTimer::singleShot(0, [&] { events.emplace_back("person"); });
    });
  QElapsedTimer time;
  time.start();
  while (events.size() < 6 && !time.hasExpired(10'000))
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
  EXPECT_THAT(events, ElementsAre("work", "person", "work", "person", "work", "person"));
}

TEST_F(TreeViewTest, NoOtherWorkIsDoneWhileAPieceShowsAMessage) {
  show();
  int done = 0;
  view_.tree().whenIdle(root(), [&] {
    view_.tree().select(&root());
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(done, 0);
    ++done;
  });
  view_.tree().whenIdle(root(), [&] { ++done; });
  for (int round = 0; round < 5; ++round)
    QCoreApplication::processEvents();
  EXPECT_EQ(done, 2);
}

}  // namespace
}  // namespace quernstoke
