#pragma once

#include "platform/eventLoop.h"

namespace quernstoke {

// Serves the events of all windows that are waiting, those that serving brings about included.
class QtEventLoop final : public EventLoop {
 public:
  void yield() override;
};

}  // namespace quernstoke
