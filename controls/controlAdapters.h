#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QWidget>

#include "controls/tag.h"
#include "platform/controls.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

// Controls as the engine asks for them. Each refers to a widget that outlives it.

// Has the tag of its widget, which may also be an action.
template <class Interface, class Widget>
class QtTagged : public Interface {
 public:
  explicit QtTagged(Widget* widget) : widget_(widget) {}
  std::string tag() const override { return tagOf(*widget_); }
  void setTag(std::string_view tag) override { quernstoke::setTag(*widget_, tag); }

 protected:
  Widget* widget_;
};

class QtFrame : public FrameControl, public QtTagged<TaggedControl, QWidget> {
 public:
  using QtTagged::QtTagged;
  void setVisible(bool visible) override { widget_->setVisible(visible); }
};

class QtOption : public OptionControl {
 public:
  explicit QtOption(QRadioButton* button) : button_(button) {}
  void setEnabled(bool enabled) override { button_->setEnabled(enabled); }
  void select() override { button_->setChecked(true); }

 private:
  QRadioButton* button_;
};

class QtScrollBar : public QtTagged<ScrollBarControl, QScrollBar> {
 public:
  using QtTagged::QtTagged;
  std::int16_t minimum() const override { return static_cast<std::int16_t>(widget_->minimum()); }
  std::int16_t maximum() const override { return static_cast<std::int16_t>(widget_->maximum()); }
  std::int16_t largeChange() const override {
    return static_cast<std::int16_t>(widget_->pageStep());
  }
  std::int16_t value() const override { return static_cast<std::int16_t>(widget_->value()); }
  void setMinimum(std::int16_t minimum) override { widget_->setMinimum(minimum); }
  void setMaximum(std::int16_t maximum) override { widget_->setMaximum(maximum); }
  void setLargeChange(std::int16_t change) override { widget_->setPageStep(change); }
  void setValue(std::int16_t value) override { widget_->setValue(value); }
  void setVisible(bool visible) override { widget_->setVisible(visible); }
};

class QtTextBox : public TextControl {
 public:
  explicit QtTextBox(QPlainTextEdit* box) : box_(box) {}
  void setText(std::string_view text) override { box_->setPlainText(qtText(text)); }

 private:
  QPlainTextEdit* box_;
};

class QtComboBox : public ListControl {
 public:
  explicit QtComboBox(QComboBox* list) : list_(list) {}
  void clear() override { list_->clear(); }
  void add(std::string_view text, std::int16_t data) override {
    list_->addItem(qtText(text), int{data});
  }
  std::int16_t count() const override { return static_cast<std::int16_t>(list_->count()); }
  std::int16_t data(std::int16_t position) const override {
    return static_cast<std::int16_t>(list_->itemData(position).toInt());
  }

 private:
  QComboBox* list_;
};

class QtListBox : public ListControl {
 public:
  explicit QtListBox(QListWidget* list) : list_(list) {}
  void clear() override { list_->clear(); }
  void add(std::string_view text, std::int16_t data) override {
    list_->addItem(qtText(text));
    list_->item(list_->count() - 1)->setData(Qt::UserRole, int{data});
  }
  std::int16_t count() const override { return static_cast<std::int16_t>(list_->count()); }
  std::int16_t data(std::int16_t position) const override {
    return static_cast<std::int16_t>(list_->item(position)->data(Qt::UserRole).toInt());
  }

 private:
  QListWidget* list_;
};

}  // namespace quernstoke
