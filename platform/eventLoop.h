#pragma once

namespace quernstoke {

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  // Serves what is waiting to be served: clicks, paints, a signal that has come in.
  virtual void yield() = 0;
};

}  // namespace quernstoke
