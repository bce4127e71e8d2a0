#include "platform/linux/linuxLocale.h"

#include <ctime>
#include <langinfo.h>
#include <new>

#include "platform/linux/letterCase.h"

namespace quernstoke {

namespace {

// Each category on its own, so that one that isn't installed doesn't take the others away.
locale_t environmentLocale() {
  locale_t locale = ::newlocale(LC_ALL_MASK, "C", locale_t{});
  if (locale == locale_t{}) throw std::bad_alloc();
  for (const int category : {LC_CTYPE_MASK, LC_TIME_MASK, LC_NUMERIC_MASK})
    if (const locale_t extended = ::newlocale(category, "", locale)) locale = extended;
  return locale;
}

bool isUtf8OrAscii(locale_t locale) {
  const std::string_view codeset = ::nl_langinfo_l(CODESET, locale);
  return codeset == "UTF-8" || codeset == "ANSI_X3.4-1968";
}

locale_t personsLocale() {
  const locale_t locale = environmentLocale();
  if (isUtf8OrAscii(locale)) return locale;
  ::freelocale(locale);
  return ::newlocale(LC_ALL_MASK, "C", locale_t{});
}

std::tm brokenDown(DateTime when) {
  const CivilTime civil = civilTime(when);
  std::tm parts{};
  parts.tm_year = civil.year - 1900;
  parts.tm_mon = civil.month - 1;
  parts.tm_mday = civil.day;
  parts.tm_hour = civil.hour;
  parts.tm_min = civil.minute;
  parts.tm_sec = civil.second;
  ::timegm(&parts);    // Fills in the day of the week and of the year.
  parts.tm_zone = "";  // Some locales print the zone, and this is none that they could name.
  return parts;
}

}  // namespace

LinuxLocale::LinuxLocale() : locale_(personsLocale()) {}

LinuxLocale::~LinuxLocale() {
  ::freelocale(locale_);
}

std::string LinuxLocale::lower(std::string_view text) {
  return lowerCase(text);
}

std::string LinuxLocale::upper(std::string_view text) {
  return upperCase(text);
}

std::string LinuxLocale::generalDate(DateTime when) {
  return formatted("%x %X", when);
}

std::string LinuxLocale::shortDate(DateTime when) {
  return formatted("%x", when);
}

std::string LinuxLocale::thousandsSeparator() {
  return ::nl_langinfo_l(THOUSEP, locale_);
}

std::string LinuxLocale::decimalPoint() {
  return ::nl_langinfo_l(RADIXCHAR, locale_);
}

std::string LinuxLocale::formatted(const char* format, DateTime when) const {
  const std::tm parts = brokenDown(when);
  char text[512];
  return std::string(text, ::strftime_l(text, sizeof text, format, &parts, locale_));
}

}  // namespace quernstoke
