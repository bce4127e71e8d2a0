#include "settings/configRecord.h"

#include "platform/platform.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* path = "C:\\Quernstoke\\records";

class ConfigRecordTest : public EngineTest {
 protected:
  // What a file holds after one record was written to it.
  std::string written(const std::string& key, Int16 index, std::string value,
                      const std::string& type) {
    basConfigWrite(files().open(path, OpenMode::binary), key, index, value, type);
    return disk.content(path);
  }

  void openFile(const std::string& content) {
    disk.file(path, content);
    file_ = files().open(path, OpenMode::binary);
  }

  // The next record as "key|index|value|type", with "end:" in front when the end was told.
  std::string read() {
    std::string key = "left over", value = key, type = key;
    Int16 index = 99;
    const bool atEnd = basConfigRead(file_, key, index, value, type);
    return (atEnd ? "end:" : "") + key + "|" + std::to_string(index.raw()) + "|" + value + "|" +
           type;
  }

 private:
  FileNumber file_ = 0;
};

TEST_F(ConfigRecordTest, WritesTabsBetweenFieldsAndACarriageReturnWithoutLineFeed) {
  EXPECT_EQ(written("MinimumSize", 0, "32", "N"), "MinimumSize\t0\t32\tN\r");
}

TEST_F(ConfigRecordTest, EmptyNumberIsWrittenAndGivenBackAsZero) {
  std::string value;
  basConfigWrite(files().open(path, OpenMode::binary), "ElapsedTime", 0, value, "N");

  EXPECT_EQ(disk.content(path), "ElapsedTime\t0\t0\tN\r");
  EXPECT_EQ(value, "0");
}

TEST_F(ConfigRecordTest, EmptyTextStaysEmpty) {
  openFile(written("Desc", 0, "", "S"));

  EXPECT_EQ(disk.content(path), "Desc\t0\t\tS\r");
  EXPECT_EQ(read(), "Desc|0||S");
}

TEST_F(ConfigRecordTest, IndexesMayBeNegative) {
  openFile(written("Dir", -1, "C:\\a", "S"));

  EXPECT_EQ(disk.content(path), "Dir\t-1\tC:\\a\tS\r");
  EXPECT_EQ(read(), "Dir|-1|C:\\a|S");
}

TEST_F(ConfigRecordTest, AllBytesButTheTwoThatDivideComeBack) {
  std::string value;
  for (int byte = 0; byte < 256; ++byte)
    if (byte != '\t' && byte != '\r') value += static_cast<char>(byte);
  openFile(written("Desc", 0, value, "S"));

  EXPECT_EQ(read(), "Desc|0|" + value + "|S");
}

// Nothing is escaped.
TEST_F(ConfigRecordTest, TabInAValueCutsIt) {
  openFile(written("Desc", 0, "a\tb", "S"));

  EXPECT_EQ(read(), "Desc|0|a|S");
}

TEST_F(ConfigRecordTest, CarriageReturnInAValueMakesTwoRecords) {
  openFile(written("Desc", 0, "a\rb", "S"));

  EXPECT_EQ(read(), "Desc|0||a");
  EXPECT_EQ(read(), "b|0||S");
  EXPECT_EQ(read(), "end:|0||");
}

TEST_F(ConfigRecordTest, EmptyFileIsAtItsEndWithNothingRead) {
  openFile("");

  EXPECT_EQ(read(), "end:|0||");
}

TEST_F(ConfigRecordTest, EndIsToldByTheCallAfterTheLastRecord) {
  openFile("a\t1\tx\tS\rb\t2\ty\tB\r");

  EXPECT_EQ(read(), "a|1|x|S");
  EXPECT_EQ(read(), "b|2|y|B");
  EXPECT_EQ(read(), "end:|0||");
  EXPECT_EQ(read(), "end:|0||");
}

TEST_F(ConfigRecordTest, RecordThatIsCutIsLost) {
  openFile("a\t1\tx\tS\rb\t2\ty");

  EXPECT_EQ(read(), "a|1|x|S");
  EXPECT_THAT(read(), testing::StartsWith("end:"));
}

TEST_F(ConfigRecordTest, LineFeedBehindARecordBelongsToTheNextKey) {
  openFile("a\t1\tx\tS\r\nb\t2\ty\tS\r\n");

  EXPECT_EQ(read(), "a|1|x|S");
  EXPECT_EQ(read(), "\nb|2|y|S");
  EXPECT_EQ(read(), "end:|0||");
}

TEST_F(ConfigRecordTest, RecordsOfFewerFieldsAreTaken) {
  openFile("word\rword\t3\r\r");

  EXPECT_EQ(read(), "|0||word");
  EXPECT_EQ(read(), "word|0||3");
  EXPECT_EQ(read(), "|0||");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ConfigRecordTest, OnlyTheLastOfTooManyFieldsCounts) {
  openFile("a\t1\tx\tN\tmore\tB\r");

  EXPECT_EQ(read(), "a|1|x|B");
}

TEST_F(ConfigRecordTest, EmptyIndexAndEmptyNumberReadAsZero) {
  openFile("a\t\t\tN\r");

  EXPECT_EQ(read(), "a|0|0|N");
}

// The outputs stay as far as they were filled: not even the empty number became "0" any more.
TEST_F(ConfigRecordTest, IndexOfLettersIsToldAndReadingGoesOn) {
  openFile("a\tx\t\tN\rb\t2\ty\tS\r");

  EXPECT_EQ(read(), "a|0||N");
  EXPECT_EQ(read(), "b|2|y|S");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Type mismatch(13)")));
}

TEST_F(ConfigRecordTest, IndexesTooLargeForSixteenOrThirtyTwoBitsAreTold) {
  openFile("a\t32768\tx\tS\rb\t3000000000\ty\tS\rc\t32767\tz\tS\r");

  EXPECT_EQ(read(), "a|0|x|S");
  EXPECT_EQ(read(), "b|0|y|S");
  EXPECT_EQ(read(), "c|32767|z|S");
  const std::string overflow = procedureError("basConfigRead", "Overflow(6)");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(overflow, overflow));
}

TEST_F(ConfigRecordTest, FailedReadLosesWhatTheRecordHadSoFar) {
  openFile("ab\t1\tx\tS\r");
  disk.failOn(DiskAction::read, path, FailureNumber::deviceError, 2);

  EXPECT_EQ(read(), "|0||");
  EXPECT_EQ(read(), "b|1|x|S");
  EXPECT_EQ(read(), "end:|0||");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Device I/O error(57)")));
}

TEST_F(ConfigRecordTest, FailedWriteIsTold) {
  disk.freeBytes = 10;

  EXPECT_EQ(written("MinimumSize", 0, "32", "N"), "");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basConfigWrite", "Disk full(61)")));
}

TEST_F(ConfigRecordTest, RecordsAreHandedOutUntilEnoughAreTaken) {
  disk.file(path, "a\t0\tx\tS\rb\t0\ty\tS\rc\t0\tz\tS\r");
  std::vector<std::string> keys;
  const auto takeUpTo = [&](const std::string& last) {
    keys.clear();
    readRecords(path, [&](const ConfigRecord& record) {
      keys.push_back(record.key);
      return record.key != last;
    });
  };
  takeUpTo("b");
  EXPECT_THAT(keys, ElementsAre("a", "b"));
  takeUpTo("none");
  EXPECT_THAT(keys, ElementsAre("a", "b", "c"));
  EXPECT_EQ(disk.openFiles(), 0);
}

}  // namespace
}  // namespace quernstoke
