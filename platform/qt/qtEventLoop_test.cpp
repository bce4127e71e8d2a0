#include "platform/qt/qtEventLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(QtEventLoopTest, YieldServesWhatIsWaiting) {
  int served = 0;
  QTimer::singleShot(0, [&] { ++served; });
  EXPECT_EQ(served, 0);
  QtEventLoop().yield();
  EXPECT_EQ(served, 1);
}

TEST(QtEventLoopTest, YieldReturnsWhenNothingIsWaiting) {
  QtEventLoop().yield();
  int served = 0;
  QTimer never;
  QObject::connect(&never, &QTimer::timeout, [&] { ++served; });
  never.start(3'600'000);
  QtEventLoop().yield();
  EXPECT_EQ(served, 0);
}

// A window may be done with inside a handler that goes on to yield: it lives until that returns.
TEST(QtEventLoopTest, YieldLeavesObjectsAliveThatItsCallersHandlerIsDoneWith) {
  QPointer<QObject> object = new QObject;
  bool wasAlive = false;
  QTimer::singleShot(0, [&] {
    object->deleteLater();
    QtEventLoop().yield();
    wasAlive = !object.isNull();
  });
  QtEventLoop().yield();
  EXPECT_TRUE(wasAlive);
  QCoreApplication::sendPostedEvents(object.data(), QEvent::DeferredDelete);
  EXPECT_TRUE(object.isNull());
}

}  // namespace
}  // namespace quernstoke
