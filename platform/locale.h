#pragma once

#include <string>
#include <string_view>

#include "platform/dateTime.h"

namespace quernstoke {

// The person's language and customs. Text is UTF-8; bytes that are not valid UTF-8 pass unchanged.
class Locale {
 public:
  virtual ~Locale() = default;

  virtual std::string lower(std::string_view text) = 0;
  virtual std::string upper(std::string_view text) = 0;
  virtual std::string generalDate(DateTime when) = 0;  // Date and time.
  virtual std::string shortDate(DateTime when) = 0;
  virtual std::string thousandsSeparator() = 0;
  virtual std::string decimalPoint() = 0;
};

}  // namespace quernstoke
