#include "core/log.h"

#include <string>

#include "core/modMain.h"
#include "core/procedure.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/locale.h"
#include "platform/platform.h"

namespace quernstoke {

Int32 LogFileNumber;

void basLogMsg(std::string_view message) {
  procedure("basLogMsg", [&] {
    if (LogFileNumber < 1) {
      dialogs().messageBox(message);
      return;
    }
    std::string line = userLocale().generalDate(systemClock().now());
    line.append(" - ").append(message).append("\r\n");
    files().write(Int16(LogFileNumber).raw(), line);
  });
}

void openLog() {
  LogFileNumber = files().open(AppPath + "\\" + ExeName + ".log", OpenMode::output);
}

void closeLog() {
  if (LogFileNumber > 0) files().close(Int16(LogFileNumber).raw());
  LogFileNumber = 0;
}

}  // namespace quernstoke
