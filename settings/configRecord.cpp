#include "settings/configRecord.h"

#include <array>

#include "core/procedure.h"
#include "core/text.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

constexpr char fieldEnd = '\t';
constexpr char recordEnd = '\r';

bool isEmpty(const ConfigRecord& record) {
  return record.key.empty() && record.value.empty() && record.type.empty();
}

}  // namespace

void basConfigWrite(FileNumber file, const std::string& key, Int16 index, std::string& value,
                    const std::string& type) {
  procedure("basConfigWrite", [&] {
    if (type == "N" && value.empty()) value = "0";
    files().write(file,
                  key + fieldEnd + toText(index) + fieldEnd + value + fieldEnd + type + recordEnd);
  });
}

bool basConfigRead(FileNumber file, std::string& key, Int16& index, std::string& value,
                   std::string& type) {
  return procedure("basConfigRead", [&] {
    key.clear();
    value.clear();
    type.clear();
    index = 0;
    std::string indexText;
    const std::array<std::string*, 4> fields = {&key, &indexText, &value, &type};
    std::size_t field = 0;
    std::string buffer;

    for (char byte = 0; files().read(file, {&byte, 1}) != 0;) {
      if (byte == fieldEnd) {
        if (field < fields.size()) *fields[field] = buffer;
        buffer.clear();
        ++field;
      } else if (byte == recordEnd) {
        type = buffer;
        index = indexText.empty() ? Int32(0) : toNumber(indexText);
        if (type == "N" && value.empty()) value = "0";
        return false;
      } else {
        buffer += byte;
      }
    }
    return true;
  });
}

void readRecords(const std::string& path, const std::function<bool(const ConfigRecord&)>& take) {
  // A read that failed looks like an empty record; this many in a row are a disk that is lost.
  constexpr int mostEmptyRecords = 100;
  const FileNumber file = files().open(path, OpenMode::input);
  ConfigRecord record;
  int emptyRecords = 0;
  while (!basConfigRead(file, record.key, record.index, record.value, record.type)) {
    emptyRecords = isEmpty(record) ? emptyRecords + 1 : 0;
    if (emptyRecords > mostEmptyRecords) fail(FailureNumber::deviceError);
    if (!take(record)) break;
  }
  files().close(file);
}

}  // namespace quernstoke
