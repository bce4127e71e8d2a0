#pragma once

#include <QAction>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>

#include "controls/boldFont.h"
#include "controls/controlAdapters.h"
#include "pictures/pictures.h"
#include "platform/qt/qtText.h"

namespace quernstoke::forms {

// Buttons and menu items of the results window as its procedures ask for them.

// Says by its picture whether the columns are fitted.
class AutoResizeButton : public QtTagged<PictureButtonControl, QPushButton> {
 public:
  using QtTagged::QtTagged;
  void setPicture(std::string_view key) override {
    widget_->setIcon(picture(key));
    widget_->setAccessibleDescription(qtText(key));
  }
};

// A name of the person's own has no mnemonic, and may be wider than the screen.
class FilterItem : public QtTagged<MenuItemControl, QAction> {
 public:
  using QtTagged::QtTagged;
  void setCaption(std::string_view caption) override {
    const QFontMetrics metrics(widget_->font());
    const int widest = QGuiApplication::primaryScreen()->availableSize().width() * 3 / 4;
    widget_->setText(
        metrics.elidedText(qtText(caption), Qt::ElideMiddle, widest).replace("&", "&&"));
  }
};

// Has no text that could be bold: it stays down instead.
class DirectoryButton : public QtTagged<DirectoryButtonControl, QPushButton> {
 public:
  using QtTagged::QtTagged;
  void setToolTip(std::string_view text) override {
    widget_->setToolTip(qtText(text));
    widget_->setAccessibleDescription(qtText(text));
  }
  void setBold(bool bold) override {
    quernstoke::setBold(*widget_, bold);
    widget_->setCheckable(bold);
    widget_->setChecked(bold);
  }
  // After a click, which would release it.
  void staySet() { widget_->setChecked(widget_->isCheckable()); }
};

}  // namespace quernstoke::forms
