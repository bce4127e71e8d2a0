#pragma once

#include <gtest/gtest.h>
#include <optional>

#include "platform/failure.h"

namespace quernstoke {

// The number of the failure that an action ends with, or nothing.
template <class Action>
std::optional<FailureNumber> failureOf(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return static_cast<FailureNumber>(failure.number);
  }
  return std::nullopt;
}

}  // namespace quernstoke

#define EXPECT_FAILURE(expected, statement)                                                      \
  EXPECT_EQ(::quernstoke::failureOf([&] { statement; }).value_or(::quernstoke::FailureNumber{}), \
            ::quernstoke::FailureNumber::expected)
