#pragma once

#include <clocale>
#include <string>
#include <string_view>

#include "platform/locale.h"

namespace quernstoke {

// The locale that the environment names, whatever the process's own setting is. Categories that
// name a locale that is missing or not UTF-8 are those of the "C" locale.
class LinuxLocale final : public Locale {
 public:
  LinuxLocale();
  ~LinuxLocale() override;
  LinuxLocale(const LinuxLocale&) = delete;
  LinuxLocale& operator=(const LinuxLocale&) = delete;

  std::string lower(std::string_view text) override;
  std::string upper(std::string_view text) override;
  std::string generalDate(DateTime when) override;
  std::string shortDate(DateTime when) override;
  std::string thousandsSeparator() override;
  std::string decimalPoint() override;

 private:
  std::string formatted(const char* format, DateTime when) const;

  locale_t locale_;
};

}  // namespace quernstoke
