#pragma once

#include "platform/dateTime.h"

namespace quernstoke {

class Clock {
 public:
  virtual ~Clock() = default;

  virtual DateTime now() = 0;
};

}  // namespace quernstoke
