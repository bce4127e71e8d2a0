#pragma once

#include <QIcon>
#include <QPalette>
#include <QRect>
#include <QSize>
#include <QString>
#include <map>
#include <string>

class QPainter;
class QWidget;

namespace quernstoke {

class FlexGridModel;
struct GridCell;
struct GridLayout;

struct GridPicture {
  QIcon icon;
  QSize size;       // In pixels of the layout.
  QString meaning;  // For those who can't see it.
};
using GridPictures = std::map<std::string, GridPicture>;

// Draws a grid in the style, palette and font of its widget.
class FlexGridPainter {
 public:
  FlexGridPainter(QPainter& painter, const FlexGridModel& grid, const GridLayout& layout,
                  const GridPictures& pictures, const QWidget& widget);

  // Draws the rows and titles that have to do with this area.
  void paint(const QRect& area);

 private:
  void paintRow(int row, const QRect& area);
  void paintCell(int row, int col);
  void paintText(const GridCell& cell, Qt::Alignment alignment, const QRect& rect);
  void paintPicture(const GridCell& cell, const QRect& rect);
  void paintFocus(int row, int col);
  void paintTitles();
  void paintTitle(int col);
  void paintBesideTitles();

  QPainter& painter_;
  const FlexGridModel& grid_;
  const GridLayout& layout_;
  const GridPictures& pictures_;
  const QWidget& widget_;
  QPalette::ColorGroup colours_;
  int margin_;
};

// The blank at both sides of a text.
int gridTextMargin(const QWidget& widget);
// How high the titles and the other rows have to be.
int gridTitleHeight(const QWidget& widget);
int gridRowHeight(const QWidget& widget);

}  // namespace quernstoke
