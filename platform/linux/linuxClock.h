#pragma once

#include "platform/clock.h"
#include "platform/linux/localTime.h"

namespace quernstoke {

// The system's clock in local time.
class LinuxClock final : public Clock {
 public:
  DateTime now() override;

 private:
  LocalTime localTime_;
};

}  // namespace quernstoke
