#include "console/optionValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "catalogue/extensions.h"
#include "console/exitStatus.h"
#include "core/fixedPoint.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

namespace {

struct Measure {
  std::string_view name;
  std::uint64_t bytes;
};

constexpr std::uint64_t kilobyte = 1024;
constexpr std::uint64_t megabyte = 1024 * kilobyte;
constexpr std::uint64_t gigabyte = 1024 * megabyte;
constexpr std::array<Measure, 4> measures = {
    {{"B", 1}, {"KB", kilobyte}, {"MB", megabyte}, {"GB", gigabyte}}};
constexpr std::uint64_t mostGigabytes =
    std::numeric_limits<std::int64_t>::max() / FixedPoint::scale / gigabyte;

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

std::string upperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return result;
}

const Measure* findMeasure(std::string_view name) {
  const auto found =
      std::ranges::find(measures, upperAscii(name), [](const Measure& m) { return m.name; });
  return found == measures.end() ? nullptr : &*found;
}

// Settings hold up to 32 bits in bytes, KB and MB. Beyond that only whole GB are left; rounding up
// to them changes nothing, as no file of 2 GiB or more is ever compared.
SizeLimit asLimit(std::uint64_t number, const Measure& measure, std::string_view text) {
  std::uint64_t bytes = 0;
  if (__builtin_mul_overflow(number, measure.bytes, &bytes) || bytes > mostGigabytes * gigabyte)
    refuse("a size of " + std::string(text) + " is too large");
  if (bytes <= std::numeric_limits<std::int32_t>::max())
    return {static_cast<std::int32_t>(number), std::string(measure.name)};
  return {static_cast<std::int32_t>((bytes + gigabyte - 1) / gigabyte), "GB"};
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// "*.jpg", ".jpg" and "jpg" all give "*.jpg"; "*" and "*.*" mean all files.
std::string typePattern(std::string_view type) {
  if (type == "*" || type == "*.*") return "*.*";
  std::string_view extension = type;
  if (extension.starts_with('*')) extension.remove_prefix(1);
  if (extension.starts_with('.')) extension.remove_prefix(1);
  if (extension.empty() || extension.find_first_of(".*?/") != std::string_view::npos)
    refuse(quoted(type) + " is no file type; *.jpg or jpg would be one");
  return "*." + windowsName(extension);
}

}  // namespace

void refuse(const std::string& line) {
  throw ScanError(ExitStatus::wrongArguments, line);
}

std::string matchLetters(std::string_view text) {
  std::string letters = upperAscii(text);
  if (letters.empty() || letters.find_first_not_of("NCS") != std::string::npos)
    refuse("--match takes letters out of N, C and S, not " + quoted(text));
  return letters;
}

std::int16_t matchPercent(std::string_view text) {
  std::int16_t percent = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
  if (error != std::errc() || end != text.data() + text.size() || percent < 50 || percent > 100)
    refuse("--percent takes a whole number from 50 to 100, not " + quoted(text));
  return percent;
}

SizeLimit sizeLimit(std::string_view text) {
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  const Measure* const measure = findMeasure(text.substr(digits));
  if (digits == 0 || measure == nullptr)
    refuse("a size is a whole number with B, KB, MB or GB, such as 10KB, not " + quoted(text));
  std::uint64_t number = 0;
  if (std::from_chars(text.data(), text.data() + digits, number).ec != std::errc())
    refuse("a size of " + std::string(text) + " is too large");
  return asLimit(number, *measure, text);
}

std::int64_t bytesOf(const SizeLimit& limit) {
  return limit.number * static_cast<std::int64_t>(findMeasure(limit.measure)->bytes);
}

std::string typeList(std::string_view text) {
  std::string list;
  int count = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(';', at), text.size());
    const std::string_view type = withoutBlanks(text.substr(at, end - at));
    at = end + 1;
    if (type.empty()) continue;
    if (++count > lastExtensionSlot)
      refuse("--types takes at most " + std::to_string(lastExtensionSlot) + " types");
    if (!list.empty()) list += ';';
    list += typePattern(type);
  }
  if (list.empty()) refuse("--types takes a list such as jpg;png, not " + quoted(text));
  return list;
}

std::string profileName(std::string_view text) {
  // Else the name would be a path, and saving the profile would write over somebody's file.
  if (text.find_first_of("/\\:*?\"<>|") != std::string_view::npos)
    refuse("no profile can be called " + quoted(text));
  return std::string(text);
}

ReportFormat reportFormat(std::string_view text) {
  if (text == "text") return ReportFormat::text;
  if (text == "csv") return ReportFormat::csv;
  if (text == "html") return ReportFormat::html;
  refuse("--format takes text, csv or html, not " + quoted(text));
}

}  // namespace quernstoke
