#include <QApplication>
#include <string>

#include "controls/form.h"
#include "core/modMain.h"
#include "mainui/frmGetDirName.h"
#include "mainui/frmMainWindow.h"
#include "mainui/modalForms.h"
#include "pictures/pictures.h"
#include "platform/linux/linuxClock.h"
#include "platform/linux/linuxDesktop.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/linuxLocale.h"
#include "platform/linux/zipArchives.h"
#include "platform/platform.h"
#include "platform/qt/qtDialogs.h"
#include "platform/qt/qtEventLoop.h"

int main(int, char**) {
  return 0;
}
