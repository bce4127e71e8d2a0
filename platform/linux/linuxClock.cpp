#include "platform/linux/linuxClock.h"

#include <ctime>

namespace quernstoke {

DateTime LinuxClock::now() {
  return localTime_.at(std::time(nullptr));
}

}  // namespace quernstoke
