#pragma once

#include <QApplication>
#include <QTimer>

namespace quernstoke {

// Runs the event loop, as the program does, until nothing is waiting.
inline void settle() {
  for (int round = 0; round < 3; ++round) {
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
  }
}

}  // namespace quernstoke
