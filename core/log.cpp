#include "core/log.h"

#include <string>
#include <utility>

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
  // Given up first: a log that fails to close must not keep the next scan from opening its own.
  const Int16 file = std::exchange(LogFileNumber, 0);
  if (file > 0) files().close(file.raw());
}

}  // namespace quernstoke
