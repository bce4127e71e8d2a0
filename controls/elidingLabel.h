#pragma once

#include <QLabel>

namespace quernstoke {

// A label of one line whose text, when there is no room for all of it, ends in "...", or with a
// mode set has it elsewhere. It never makes its window wider. Text is shown as it is, without
// markup.
class ElidingLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidingLabel(QWidget* parent = nullptr);

  void setElideMode(Qt::TextElideMode mode) { mode_ = mode; }
  QString shownText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode mode_ = Qt::ElideRight;
};

}  // namespace quernstoke
