#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"
#include "platform/dateTime.h"
#include "platform/fileSystem.h"

namespace quernstoke {

// Text files of one record a line: fields divided by commas, text in double quotes, dates between
// "#" signs, each line ended by carriage return and line feed.

class SequentialWriter {
 public:
  // The caller opens and closes the file, and calls flush() before closing it.
  explicit SequentialWriter(FileNumber file) : file_(file) {}

  SequentialWriter& field(std::string_view text);
  SequentialWriter& field(Int32 number);
  SequentialWriter& field(DateTime date);
  void endRecord();
  void flush();

 private:
  void divide();

  FileNumber file_;
  std::string buffer_;
  bool recordBegun_ = false;
};

class SequentialReader {
 public:
  explicit SequentialReader(FileNumber file) : file_(file), buffer_(std::size_t{64} * 1024) {}

  bool atEnd();

  // The next field of the record. Each fails with a type mismatch for a field of another kind, and
  // with an input past the end of the file when there is no further field.
  std::string text();
  Int32 number();
  DateTime date();

 private:
  char peek();
  char take();
  void endField();
  // The characters up to the field's end, without blanks in front.
  std::string rawField();

  FileNumber file_;
  std::vector<char> buffer_;
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
};

}  // namespace quernstoke
