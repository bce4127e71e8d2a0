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
  EXPECT_EQ("MinimumSize\t0\t32\tN\r", written("MinimumSize", 0, "32", "N"));
}

TEST_F(ConfigRecordTest, EmptyNumberIsWrittenAndGivenBackAsZero) {
  std::string value;
  basConfigWrite(files().open(path, OpenMode::binary), "ElapsedTime", 0, value, "N");

  EXPECT_EQ("ElapsedTime\t0\t0\tN\r", disk.content(path));
  EXPECT_EQ("0", value);
}

TEST_F(ConfigRecordTest, EmptyTextStaysEmpty) {
  openFile(written("Desc", 0, "", "S"));

  EXPECT_EQ("Desc\t0\t\tS\r", disk.content(path));
  EXPECT_EQ("Desc|0||S", read());
}

TEST_F(ConfigRecordTest, IndexesMayBeNegative) {
  openFile(written("Dir", -1, "C:\\a", "S"));

  EXPECT_EQ("Dir\t-1\tC:\\a\tS\r", disk.content(path));
  EXPECT_EQ("Dir|-1|C:\\a|S", read());
}

TEST_F(ConfigRecordTest, AllBytesButTheTwoThatDivideComeBack) {
  std::string value;
  for (int byte = 0; byte < 256; ++byte)
    if (byte != '\t' && byte != '\r') value += static_cast<char>(byte);
  openFile(written("Desc", 0, value, "S"));

  EXPECT_EQ("Desc|0|" + value + "|S", read());
}

// Nothing is escaped.
TEST_F(ConfigRecordTest, TabInAValueCutsIt) {
  openFile(written("Desc", 0, "a\tb", "S"));

  EXPECT_EQ("Desc|0|a|S", read());
}

TEST_F(ConfigRecordTest, CarriageReturnInAValueMakesTwoRecords) {
  openFile(written("Desc", 0, "a\rb", "S"));

  EXPECT_EQ("Desc|0||a", read());
  EXPECT_EQ("b|0||S", read());
  EXPECT_EQ("end:|0||", read());
}

TEST_F(ConfigRecordTest, EmptyFileIsAtItsEndWithNothingRead) {
  openFile("");

  EXPECT_EQ("end:|0||", read());
}

TEST_F(ConfigRecordTest, EndIsToldByTheCallAfterTheLastRecord) {
  openFile("a\t1\tx\tS\rb\t2\ty\tB\r");

  EXPECT_EQ("a|1|x|S", read());
  EXPECT_EQ("b|2|y|B", read());
  EXPECT_EQ("end:|0||", read());
  EXPECT_EQ("end:|0||", read());
}

TEST_F(ConfigRecordTest, RecordThatIsCutIsLost) {
  openFile("a\t1\tx\tS\rb\t2\ty");

  EXPECT_EQ("a|1|x|S", read());
  EXPECT_THAT(read(), testing::StartsWith("end:"));
}

TEST_F(ConfigRecordTest, LineFeedBehindARecordBelongsToTheNextKey) {
  openFile("a\t1\tx\tS\r\nb\t2\ty\tS\r\n");

  EXPECT_EQ("a|1|x|S", read());
  EXPECT_EQ("\nb|2|y|S", read());
  EXPECT_EQ("end:|0||", read());
}

TEST_F(ConfigRecordTest, RecordsOfFewerFieldsAreTaken) {
  openFile("word\rword\t3\r\r");

  EXPECT_EQ("|0||word", read());
  EXPECT_EQ("word|0||3", read());
  EXPECT_EQ("|0||", read());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ConfigRecordTest, OnlyTheLastOfTooManyFieldsCounts) {
  openFile("a\t1\tx\tN\tmore\tB\r");

  EXPECT_EQ("a|1|x|B", read());
}

TEST_F(ConfigRecordTest, EmptyIndexAndEmptyNumberReadAsZero) {
  openFile("a\t\t\tN\r");

  EXPECT_EQ("a|0|0|N", read());
}

// The outputs stay as far as they were filled: not even the empty number became "0" any more.
TEST_F(ConfigRecordTest, IndexOfLettersIsToldAndReadingGoesOn) {
  openFile("a\tx\t\tN\rb\t2\ty\tS\r");

  EXPECT_EQ("a|0||N", read());
  EXPECT_EQ("b|2|y|S", read());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Type mismatch(13)")));
}

TEST_F(ConfigRecordTest, IndexesTooLargeForSixteenOrThirtyTwoBitsAreTold) {
  openFile("a\t32768\tx\tS\rb\t3000000000\ty\tS\rc\t32767\tz\tS\r");

  EXPECT_EQ("a|0|x|S", read());
  EXPECT_EQ("b|0|y|S", read());
  EXPECT_EQ("c|32767|z|S", read());
  const std::string overflow = procedureError("basConfigRead", "Overflow(6)");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(overflow, overflow));
}

TEST_F(ConfigRecordTest, FailedReadLosesWhatTheRecordHadSoFar) {
  openFile("ab\t1\tx\tS\r");
  disk.failOn(DiskAction::read, path, FailureNumber::deviceError, 2);

  EXPECT_EQ("|0||", read());
  EXPECT_EQ("b|1|x|S", read());
  EXPECT_EQ("end:|0||", read());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basConfigRead", "Device I/O error(57)")));
}

TEST_F(ConfigRecordTest, FailedWriteIsTold) {
  disk.freeBytes = 10;

  EXPECT_EQ("", written("MinimumSize", 0, "32", "N"));
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
