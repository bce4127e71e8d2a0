#include <QApplication>
#include <gtest/gtest.h>

// Tests of controls need an application. Unless a platform is asked for, nothing comes up on the
// desktop of whoever runs them; there is a screen of a common size then, and a small one.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", UNSEEN_SCREENS);
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
