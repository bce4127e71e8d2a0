#pragma once

#include <QStatusBar>
#include <string>
#include <string_view>
#include <vector>

namespace quernstoke {

struct StatusPanel {
  std::string text;  // UTF-8.
  std::string tag;
  bool visible = true;
  int minWidth = 0;
  // Where it lies in the bar, in pixels. A hidden panel has no width and no place, -1.
  int left = -1;
  int width = 0;
};

// A status bar of panels, side by side, each as wide as its text, of which a long one ends in
// "..."; they count from 1. A panel without text separates its neighbours. A panel that isn't there
// fails with a subscript out of range.
class PanelStatusBar : public QStatusBar {
  Q_OBJECT

 public:
  explicit PanelStatusBar(QWidget* parent = nullptr);

  int panelCount() const { return static_cast<int>(panels_.size()); }
  void setPanelCount(int count);
  const StatusPanel& panel(int number) const;

  void setPanelText(int number, std::string_view text);
  void setPanelTag(int number, std::string_view tag);
  void setPanelVisible(int number, bool visible);
  void setPanelMinWidth(int number, int pixels);
  int widthFor(std::string_view text) const;  // Of a panel that shows it.
  QString shownText(const StatusPanel& panel, int width) const;

  QSize minimumSizeHint() const override;

 signals:
  void mouseMove(int x);  // In pixels from the bar's left edge.

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  StatusPanel& panelAt(int number);
  void arrange();
  bool separates(std::size_t index) const;

  std::vector<StatusPanel> panels_;
};

}  // namespace quernstoke
