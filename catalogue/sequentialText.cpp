#include "catalogue/sequentialText.h"

#include <array>
#include <charconv>
#include <cstdio>

#include "core/text.h"
#include "platform/failure.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

constexpr std::size_t writeSize = std::size_t{64} * 1024;

// The number that the `length` digits from `at` on say. Fails with a type mismatch for anything
// else.
int datePart(std::string_view text, std::size_t at, std::size_t length) {
  int value = 0;
  const char* first = text.data() + at;
  const auto [stop, error] = std::from_chars(first, first + length, value);
  if (error != std::errc() || stop != first + length || value < 0)
    fail(FailureNumber::typeMismatch);
  return value;
}

}  // namespace

SequentialWriter& SequentialWriter::field(std::string_view text) {
  divide();
  buffer_.append("\"").append(text).append("\"");
  return *this;
}

SequentialWriter& SequentialWriter::field(Int32 number) {
  divide();
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number.raw()).ptr;
  buffer_.append(digits.begin(), end);
  return *this;
}

SequentialWriter& SequentialWriter::field(DateTime date) {
  divide();
  const CivilTime civil = civilTime(date);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "#%04d-%02d-%02d %02d:%02d:%02d#", civil.year,
                civil.month, civil.day, civil.hour, civil.minute, civil.second);
  buffer_.append(text.data());
  return *this;
}

void SequentialWriter::endRecord() {
  buffer_ += "\r\n";
  recordBegun_ = false;
  if (buffer_.size() >= writeSize) flush();
}

void SequentialWriter::flush() {
  files().write(file_, buffer_);
  buffer_.clear();
}

void SequentialWriter::divide() {
  if (recordBegun_) buffer_ += ',';
  recordBegun_ = true;
}

bool SequentialReader::atEnd() {
  if (next_ < filled_) return false;
  next_ = 0;
  filled_ = files().read(file_, buffer_);
  return filled_ == 0;
}

char SequentialReader::peek() {
  if (atEnd()) fail(FailureNumber::inputPastEnd);
  return buffer_[next_];
}

char SequentialReader::take() {
  const char c = peek();
  ++next_;
  return c;
}

// A field ends at a comma or at the end of its line.
void SequentialReader::endField() {
  if (atEnd()) return;
  const char c = take();
  if (c == ',' || c == '\n') return;
  if (c != '\r') fail(FailureNumber::typeMismatch);
  if (!atEnd() && peek() == '\n') take();
}

std::string SequentialReader::rawField() {
  while (peek() == ' ')
    take();
  std::string field;
  while (!atEnd() && peek() != ',' && peek() != '\r' && peek() != '\n')
    field += take();
  endField();
  return field;
}

std::string SequentialReader::text() {
  if (peek() != '"') return rawField();
  take();
  std::string text;
  for (char c = take(); c != '"'; c = take())
    text += c;
  endField();
  return text;
}

Int32 SequentialReader::number() {
  return toNumber(rawField());
}

DateTime SequentialReader::date() {
  constexpr std::string_view form = "#yyyy-mm-dd hh:mm:ss#";
  const std::string field = rawField();
  if (field.size() != form.size()) fail(FailureNumber::typeMismatch);
  for (const std::size_t at : {0U, 5U, 8U, 11U, 14U, 17U, 20U})
    if (field[at] != form[at]) fail(FailureNumber::typeMismatch);
  return dateTime({datePart(field, 1, 4), datePart(field, 6, 2), datePart(field, 9, 2),
                   datePart(field, 12, 2), datePart(field, 15, 2), datePart(field, 18, 2)});
}

}  // namespace quernstoke
