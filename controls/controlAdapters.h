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

class QtFrame : public FrameControl, public TaggedControl {
 public:
  explicit QtFrame(QWidget* widget) : widget_(widget) {}
  void setVisible(bool visible) override { widget_->setVisible(visible); }
  std::string tag() const override { return tagOf(*widget_); }
  void setTag(std::string_view tag) override { quernstoke::setTag(*widget_, tag); }

 private:
  QWidget* widget_;
};

class QtOption : public OptionControl {
 public:
  explicit QtOption(QRadioButton* button) : button_(button) {}
  void setEnabled(bool enabled) override { button_->setEnabled(enabled); }
  void select() override { button_->setChecked(true); }

 private:
  QRadioButton* button_;
};

class QtScrollBar : public ScrollBarControl {
 public:
  explicit QtScrollBar(QScrollBar* bar) : bar_(bar) {}
  std::string tag() const override { return tagOf(*bar_); }
  void setTag(std::string_view tag) override { quernstoke::setTag(*bar_, tag); }
  std::int16_t minimum() const override { return static_cast<std::int16_t>(bar_->minimum()); }
  std::int16_t maximum() const override { return static_cast<std::int16_t>(bar_->maximum()); }
  std::int16_t largeChange() const override { return static_cast<std::int16_t>(bar_->pageStep()); }
  std::int16_t value() const override { return static_cast<std::int16_t>(bar_->value()); }
  void setMinimum(std::int16_t minimum) override { bar_->setMinimum(minimum); }
  void setMaximum(std::int16_t maximum) override { bar_->setMaximum(maximum); }
  void setLargeChange(std::int16_t change) override { bar_->setPageStep(change); }
  void setValue(std::int16_t value) override { bar_->setValue(value); }
  void setVisible(bool visible) override { bar_->setVisible(visible); }

 private:
  QScrollBar* bar_;
};

class QtTextBox : public TextControl {
 public:
  explicit QtTextBox(QPlainTextEdit* box) : box_(box) {}
  void setText(std::string_view text) override { box_->setPlainText(qtText(text)); }

 private:
  QPlainTextEdit* box_;
};

class QtList : public ListControl {
 public:
  explicit QtList(QComboBox* list) : list_(list) {}
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
