#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "platform/dateTime.h"

namespace quernstoke {

// Turns moments into local time. Remembers the time zone's offsets for a while, because asking the
// system for each of many files costs more than the rest of reading their dates.
class LocalTime {
 public:
  // Seconds since 1970-01-01 00:00:00 UTC. The answer is within the calendar.
  DateTime at(std::int64_t utcSeconds);

 private:
  // Time zones change their offset at the full quarter of an hour; the rare historic exceptions
  // are blocks without one offset, and are never remembered.
  static constexpr std::int64_t blockSeconds = 900;
  static constexpr std::size_t rememberedBlocks = 1024;

  struct Block {
    std::int64_t number = std::numeric_limits<std::int64_t>::min();
    std::int64_t offset = 0;
  };

  std::int64_t offsetAt(std::int64_t utcSeconds);

  std::array<Block, rememberedBlocks> blocks_;
};

}  // namespace quernstoke
