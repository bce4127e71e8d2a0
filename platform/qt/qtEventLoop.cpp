#include "platform/qt/qtEventLoop.h"

#include <QCoreApplication>

namespace quernstoke {

void QtEventLoop::yield() {
  QCoreApplication::processEvents();
}

}  // namespace quernstoke
