#include "controls/panelStatusBar.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "platform/failure.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

constexpr int margin = 4;  // At both sides of a panel's text.

// In characters. A name that somebody has chosen must not push the other panels out of the bar.
constexpr int longestText = 40;

}  // namespace

PanelStatusBar::PanelStatusBar(QWidget* parent) : QStatusBar(parent) {
  setMouseTracking(true);
}

void PanelStatusBar::setPanelCount(int count) {
  panels_.resize(static_cast<std::size_t>(count));
  arrange();
}

const StatusPanel& PanelStatusBar::panel(int number) const {
  if (number < 1 || number > panelCount()) fail(FailureNumber::subscriptOutOfRange);
  return panels_[static_cast<std::size_t>(number) - 1];
}

StatusPanel& PanelStatusBar::panelAt(int number) {
  return const_cast<StatusPanel&>(panel(number));
}

// Bars are brought up to date far more often than they change, also while they are painted.
void PanelStatusBar::setPanelText(int number, std::string_view text) {
  StatusPanel& changed = panelAt(number);
  if (changed.text == text) return;
  changed.text = text;
  arrange();
}

void PanelStatusBar::setPanelTag(int number, std::string_view tag) {
  panelAt(number).tag = tag;
}

void PanelStatusBar::setPanelVisible(int number, bool visible) {
  StatusPanel& changed = panelAt(number);
  if (changed.visible == visible) return;
  changed.visible = visible;
  arrange();
}

void PanelStatusBar::setPanelMinWidth(int number, int pixels) {
  panelAt(number).minWidth = pixels;
  arrange();
}

int PanelStatusBar::widthFor(std::string_view text) const {
  const int longest = longestText * fontMetrics().averageCharWidth();
  return std::min(fontMetrics().horizontalAdvance(qtText(text)), longest) + 2 * margin;
}

// A fraction of a pixel that the width lacks is no reason to shorten a text.
QString PanelStatusBar::shownText(const StatusPanel& panel, int width) const {
  QString text = qtText(panel.text);
  if (fontMetrics().horizontalAdvance(text) <= width) return text;
  return fontMetrics().elidedText(text, Qt::ElideRight, width);
}

void PanelStatusBar::arrange() {
  QStringList texts;
  int left = 0;
  for (StatusPanel& panel : panels_) {
    panel.left = panel.visible ? left : -1;
    panel.width = panel.visible ? std::max(widthFor(panel.text), panel.minWidth) : 0;
    left += panel.width;
    if (panel.visible && !panel.text.empty()) texts.append(qtText(panel.text));
  }
  setAccessibleName(texts.join(", "));
  update();
}

// A separator with nothing shown behind it separates nothing.
bool PanelStatusBar::separates(std::size_t index) const {
  if (!panels_[index].text.empty() || !panels_[index].visible) return false;
  for (std::size_t next = index + 1; next < panels_.size(); ++next) {
    if (panels_[next].text.empty()) return false;
    if (panels_[next].visible) return true;
  }
  return false;
}

QSize PanelStatusBar::minimumSizeHint() const {
  return {0, std::max(fontMetrics().height() + 2 * margin, QStatusBar::minimumSizeHint().height())};
}

void PanelStatusBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    const StatusPanel& panel = panels_[i];
    const QRect rect(panel.left, 0, panel.width, height());
    if (separates(i)) {
      painter.setPen(palette().color(QPalette::PlaceholderText));
      painter.drawLine(rect.center().x(), margin, rect.center().x(), height() - margin);
    } else if (panel.visible) {
      painter.setPen(palette().color(QPalette::WindowText));
      const QRect inner = rect.adjusted(margin, 0, -margin, 0);
      painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                       shownText(panel, inner.width()));
    }
  }
}

void PanelStatusBar::changeEvent(QEvent* event) {
  QStatusBar::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
}

void PanelStatusBar::mouseMoveEvent(QMouseEvent* event) {
  emit mouseMove(event->position().toPoint().x());
}

}  // namespace quernstoke
