#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPoint>
#include <QWheelEvent>
#include <QWidget>

namespace quernstoke {

// Mouse and keyboard straight at a widget, which needs neither a window nor the focus for it. For
// tests of single widgets, and for what person.h has no function for.

inline void sendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
                      Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, modifiers);
  QApplication::sendEvent(&widget, &event);
}
inline void pressMouse(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
                       Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  sendMouse(widget, QEvent::MouseButtonPress, at, button, button, modifiers);
}
inline void moveMouse(QWidget& widget, QPoint at, Qt::MouseButtons held = Qt::NoButton) {
  sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, held, Qt::NoModifier);
}
inline void releaseMouse(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
  sendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, Qt::NoModifier);
}
inline void clickMouse(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
                       Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  pressMouse(widget, at, button, modifiers);
  releaseMouse(widget, at, button);
}
inline void doubleClickMouse(QWidget& widget, QPoint at) {
  clickMouse(widget, at);
  sendMouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton,
            Qt::NoModifier);
  releaseMouse(widget, at);
}

// Returns whether the widget took it.
inline bool turnWheel(QWidget& widget, int notches) {
  const QPoint at = widget.rect().center();
  QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
  return event.isAccepted();
}

inline void typeKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(&widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers);
  QApplication::sendEvent(&widget, &release);
}

// A key that is still held down.
inline void repeatKey(QWidget& widget, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, true);
  QApplication::sendEvent(&widget, &press);
}

}  // namespace quernstoke
