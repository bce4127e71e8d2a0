#include "controls/flexGridAccessible.h"

#include <QAccessibleWidget>
#include <QWindow>
#include <map>

#include "controls/flexGrid.h"

namespace quernstoke {

namespace {

QWidget& viewOf(const FlexGrid& grid) {
  return *grid.viewport();
}

// One row below the titles.
class AccessibleRow final : public QAccessibleInterface {
 public:
  AccessibleRow(FlexGrid& grid, int row) : grid_(grid), row_(row) {}

  int row() const { return row_; }

  bool isValid() const override { return row_ < grid_.model().rows(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return grid_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&grid_);
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? grid_.rowText(row_) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QWidget& view = viewOf(grid_);
    const QRect shown = grid_.layoutOnScreen().rowRect(row_).intersected(view.rect());
    return {view.mapToGlobal(shown.topLeft()), shown.size()};
  }

  QAccessible::State state() const override {
    const FlexGridModel& grid = grid_.model();
    const bool isCurrent = grid.row() == row_;
    QAccessible::State state;
    state.selectable = state.focusable = true;
    state.disabled = !grid_.isEnabled();
    state.invisible = !grid_.isVisible();
    state.offscreen = !grid.rowIsVisible(row_);
    state.selected = isValid() && grid.isSelected(row_, grid.col());
    state.focused = isCurrent && grid_.hasFocus();
    return state;
  }

 private:
  FlexGrid& grid_;
  int row_;
};

class AccessibleGrid final : public QAccessibleWidget {
 public:
  explicit AccessibleGrid(FlexGrid& grid)
      : QAccessibleWidget(&grid, QAccessible::List), grid_(grid) {}
  ~AccessibleGrid() override {
    for (const auto& [row, id] : rows_)
      QAccessible::deleteAccessibleInterface(id);
  }
  Q_DISABLE_COPY_MOVE(AccessibleGrid)

  int childCount() const override { return grid_.model().rows().raw() - 1; }
  QAccessibleInterface* child(int index) const override {
    return index < 0 || index >= childCount() ? nullptr : rowInterface(index + 1);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row ? row->row() - 1 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const int at = grid_.layoutOnScreen().rowAt(viewOf(grid_).mapFromGlobal(QPoint(x, y)).y());
    return child(at - 1);
  }
  QAccessibleInterface* focusChild() const override { return child(currentIndex()); }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
    return currentIndex() < 0 ? QString() : grid_.rowText(grid_.model().row().raw());
  }

  int currentIndex() const { return grid_.model().row().raw() - 1; }

 private:
  QAccessibleInterface* rowInterface(int row) const {
    const auto found = rows_.find(row);
    if (found != rows_.end()) return QAccessible::accessibleInterface(found->second);
    auto* made = new AccessibleRow(grid_, row);
    rows_[row] = QAccessible::registerAccessibleInterface(made);
    return made;
  }

  FlexGrid& grid_;
  mutable std::map<int, QAccessible::Id> rows_;  // Those that have been asked for.
};

QAccessibleInterface* accessibleGrid(const QString& /*className*/, QObject* object) {
  auto* grid = qobject_cast<FlexGrid*>(object);
  return grid ? new AccessibleGrid(*grid) : nullptr;
}

}  // namespace

void makeFlexGridsAccessible() {
  static const bool once = (QAccessible::installFactory(accessibleGrid), true);
  (void)once;
}

void tellRowFocused(FlexGrid& grid) {
  QAccessibleValueChangeEvent value(&grid, grid.rowText(grid.model().row().raw()));
  QAccessible::updateAccessibility(&value);
  if (grid.model().row() < 1) return;
  QAccessibleEvent focus(&grid, QAccessible::Focus);
  focus.setChild(grid.model().row().raw() - 1);
  QAccessible::updateAccessibility(&focus);
}

}  // namespace quernstoke
