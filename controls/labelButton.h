#pragma once

#include <QAbstractButton>

namespace quernstoke {

// A label that can be clicked, and pressed by the blank once it has the focus. Its caption is shown
// as it is, without markup or mnemonics.
class LabelButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit LabelButton(QWidget* parent = nullptr);

  QString caption() const { return caption_; }
  void setCaption(const QString& caption);
  void setBold(bool bold);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString caption_;
};

}  // namespace quernstoke
