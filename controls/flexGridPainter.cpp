#include "controls/flexGridPainter.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionHeader>
#include <QWidget>
#include <QtMath>
#include <algorithm>

#include "controls/flexGridModel.h"
#include "controls/gridLayout.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

Qt::Alignment qtAlignment(CellAlignment alignment) {
  switch (alignment) {
    case CellAlignment::leftCentre:
      return Qt::AlignLeft | Qt::AlignVCenter;
    case CellAlignment::centreTop:
      return Qt::AlignHCenter | Qt::AlignTop;
    case CellAlignment::centreCentre:
      return Qt::AlignCenter;
    case CellAlignment::centreBottom:
      return Qt::AlignHCenter | Qt::AlignBottom;
    case CellAlignment::rightCentre:
      return Qt::AlignRight | Qt::AlignVCenter;
  }
  return Qt::AlignCenter;
}

QPalette::ColorGroup coloursOf(const QWidget& widget) {
  if (!widget.isEnabled()) return QPalette::Disabled;
  return widget.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

// The state that the style may not know of: it would light the titles up under the pointer.
void initialise(QStyleOption& option, const QWidget& widget) {
  option.initFrom(&widget);
  option.state &= ~(QStyle::State_MouseOver | QStyle::State_HasFocus);
}

// How wide a text of this width is drawn in a place, as a part of its width: as wide as it is where
// it would else be illegible.
double narrowing(int textWidth, int placeWidth) {
  constexpr double narrowest = 0.75;
  const double part = static_cast<double>(placeWidth) / std::max(textWidth, 1);
  return part < narrowest ? 1 : std::min(part, 1.0);
}

}  // namespace

FlexGridPainter::FlexGridPainter(QPainter& painter, const FlexGridModel& grid,
                                 const GridLayout& layout, const GridPictures& pictures,
                                 const QWidget& widget)
    : painter_(painter),
      grid_(grid),
      layout_(layout),
      pictures_(pictures),
      widget_(widget),
      colours_(coloursOf(widget)),
      margin_(gridTextMargin(widget)) {}

void FlexGridPainter::paint(const QRect& area) {
  const int first = std::max(layout_.nearestRow(area.top()), layout_.topRow);
  const int last = std::min(layout_.nearestRow(area.bottom()), layout_.rows - 1);
  for (int row = first; row <= last; ++row)
    paintRow(row, area);
  if (area.top() < layout_.headerHeight) paintTitles();
}

void FlexGridPainter::paintRow(int row, const QRect& area) {
  const int first = layout_.nearestCol(area.left());
  const int last = layout_.nearestCol(area.right());
  for (int col = first; col <= last; ++col)
    paintCell(row, col);
}

void FlexGridPainter::paintCell(int row, int col) {
  const QRect rect = layout_.cellRect(row, col);
  if (rect.isEmpty()) return;
  const GridCell& cell = grid_.cell(row, col);
  const QPalette& palette = widget_.palette();
  QColor text = palette.color(colours_, QPalette::Text);
  if (grid_.isSelected(row, col)) {
    painter_.fillRect(rect, palette.color(colours_, QPalette::Highlight));
    text = palette.color(colours_, QPalette::HighlightedText);
  } else {
    if (cell.backColour) {
      painter_.fillRect(rect, QColor::fromRgb(*cell.backColour));
      text = Qt::black;  // The desktop's may be unreadable on it.
    }
    if (cell.foreColour) text = QColor::fromRgb(*cell.foreColour);
  }
  paintFocus(row, col);
  painter_.setPen(text);
  paintPicture(cell, rect);
  paintText(cell, qtAlignment(grid_.alignmentOf(row, col)), rect);
}

// A number that is cut short looks like another number. Before that happens it takes up the margins
// and its digits stand closer.
void FlexGridPainter::paintText(const GridCell& cell, Qt::Alignment alignment, const QRect& rect) {
  if (cell.text.empty()) return;
  QFont font = widget_.font();
  if (cell.bold) font.setBold(true);
  if (cell.strikeThrough) font.setStrikeOut(true);
  const QString text = qtText(cell.text);
  QRect place = rect.adjusted(margin_, 0, -margin_, 0);
  const int textWidth = qCeil(QFontMetricsF(font).horizontalAdvance(text));
  const int lacking = textWidth - place.width();
  double part = 1;
  if (lacking > 0 && alignment.testFlag(Qt::AlignRight)) {
    place.adjust(-std::min(lacking, margin_), 0, std::clamp(lacking - margin_, 0, margin_), 0);
    part = narrowing(textWidth, place.width());
  }
  // Not by the font's own stretch, which not every font on every desktop has.
  painter_.save();
  painter_.translate(place.topLeft());
  painter_.scale(part, 1);
  painter_.setFont(font);
  const QRect drawn(0, 0, qCeil(place.width() / part), place.height());
  const QString shown = painter_.fontMetrics().elidedText(text, Qt::ElideRight, drawn.width());
  painter_.drawText(drawn, static_cast<int>(alignment) | Qt::TextSingleLine, shown);
  painter_.restore();
}

void FlexGridPainter::paintPicture(const GridCell& cell, const QRect& rect) {
  const auto found = pictures_.find(cell.picture);
  if (found == pictures_.end()) return;
  // At the very edge of the cell: two halves of one picture meet across two rows.
  const QRect place = QStyle::alignedRect(Qt::LeftToRight, qtAlignment(cell.pictureAlignment),
                                          found->second.size, rect);
  painter_.save();
  painter_.setClipRect(rect, Qt::IntersectClip);
  found->second.icon.paint(&painter_, place, Qt::AlignCenter,
                           widget_.isEnabled() ? QIcon::Normal : QIcon::Disabled);
  painter_.restore();
}

// Below the text, which some styles would cover.
void FlexGridPainter::paintFocus(int row, int col) {
  if (!widget_.hasFocus() || grid_.row() != row || grid_.col() != col) return;
  QStyleOptionFocusRect option;
  option.initFrom(&widget_);
  option.rect = layout_.cellRect(row, col);
  option.state |= QStyle::State_KeyboardFocusChange;
  option.backgroundColor = widget_.palette().color(
      colours_, QPalette::Highlight);  // The current cell is always selected.
  widget_.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter_, &widget_);
}

void FlexGridPainter::paintTitles() {
  for (int col = 0; col < layout_.cols(); ++col)
    paintTitle(col);
  paintBesideTitles();
}

void FlexGridPainter::paintTitle(int col) {
  const GridCell& cell = grid_.cell(0, col);
  QStyleOptionHeader option;
  initialise(option, widget_);
  option.rect = layout_.cellRect(0, col);
  if (option.rect.isEmpty()) return;
  option.state |= QStyle::State_Raised | QStyle::State_Horizontal;
  option.orientation = Qt::Horizontal;
  option.section = col;
  option.position = col == 0 ? QStyleOptionHeader::Beginning : QStyleOptionHeader::Middle;
  widget_.style()->drawControl(QStyle::CE_HeaderSection, &option, &painter_, &widget_);
  paintPicture(cell, option.rect);

  option.rect.adjust(margin_, 0, -margin_, 0);
  option.textAlignment = qtAlignment(grid_.alignmentOf(0, col));
  option.text =
      option.fontMetrics.elidedText(qtText(cell.text), Qt::ElideRight, option.rect.width());
  painter_.setFont(widget_.font());
  widget_.style()->drawControl(QStyle::CE_HeaderLabel, &option, &painter_, &widget_);
}

void FlexGridPainter::paintBesideTitles() {
  QStyleOption option;
  initialise(option, widget_);
  option.rect = QRect(layout_.edges.back(), 0, widget_.width(), layout_.headerHeight);
  option.state |= QStyle::State_Horizontal;
  widget_.style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &painter_, &widget_);
}

// A column that is fitted to its text has room for one "X" more, in which both margins must fit
// whatever the style asks for; a pixel of it may be lost where the last letter meets the "X".
int gridTextMargin(const QWidget& widget) {
  constexpr int space = 2;  // Numbers at the right would touch the text of the next column.
  const int wanted = widget.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &widget) + space;
  return std::clamp((widget.fontMetrics().horizontalAdvance(u'X') - 1) / 2, 0, wanted);
}

int gridTitleHeight(const QWidget& widget) {
  QStyleOptionHeader option;
  option.initFrom(&widget);
  option.text = "X";
  const QStyle& style = *widget.style();
  const QSize size = style.sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), &widget);
  return std::max(size.height(), gridRowHeight(widget));
}

int gridRowHeight(const QWidget& widget) {
  constexpr int smallPicture = 16;
  constexpr int space = 4;
  return std::max(widget.fontMetrics().height(), smallPicture) + space;
}

}  // namespace quernstoke
