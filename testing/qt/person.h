#pragma once

#include <QPoint>
#include <QString>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "testing/qt/settle.h"

namespace quernstoke {

// A person at mouse and keyboard of a window: what is done here comes in where the desktop's events
// do, so that focus, shortcuts and filters take part. For tests of whole windows; input.h is for
// those of a single widget.

inline QWindow* windowOf(const QWidget& widget) {
  return widget.window()->windowHandle();
}
inline QPoint inWindow(const QWidget& widget, QPoint at) {
  return widget.mapTo(widget.window(), at);
}

inline void click(QWidget& widget, QPoint at) {
  QTest::mouseClick(windowOf(widget), Qt::LeftButton, {}, inWindow(widget, at));
}
inline void click(QWidget& widget) {
  click(widget, widget.rect().center());
}
inline void doubleClick(QWidget& widget, QPoint at) {
  QTest::mouseDClick(windowOf(widget), Qt::LeftButton, {}, inWindow(widget, at));
}
inline void pointAt(QWidget& widget, QPoint at) {
  QTest::mouseMove(windowOf(widget), inWindow(widget, at));
}
inline void pointAt(QWidget& widget) {
  pointAt(widget, widget.rect().center());
}

// Keys go to what has the focus in the window.
inline void pressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(windowOf(window), key, modifiers);
}
inline void typeText(QWidget& window, const QString& text) {
  for (const QChar c : text)
    QTest::keyClick(windowOf(window), c.toLatin1());
}

}  // namespace quernstoke
