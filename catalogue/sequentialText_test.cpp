#include "catalogue/sequentialText.h"

#include <limits>
#include <string>

#include "testing/engineTest.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

constexpr std::size_t bufferSize = std::size_t{64} * 1024;

class SequentialTextTest : public EngineTest {
 protected:
  static constexpr const char* path = "C:\\records.txt";

  SequentialWriter writer() { return SequentialWriter(disk.open(path, OpenMode::output)); }
  SequentialReader reader(const std::string& content) {
    disk.file(path, content);
    return SequentialReader(disk.open(path, OpenMode::input));
  }
};

TEST_F(SequentialTextTest, WritesEachKindOfFieldInItsForm) {
  SequentialWriter out = writer();
  out.field("a, b").field(-2).field(dateTime({2004, 1, 2, 3, 4, 5})).field("").endRecord();
  out.field(Int32(std::numeric_limits<std::int32_t>::min())).endRecord();
  out.flush();
  EXPECT_EQ(disk.content(path),
            "\"a, b\",-2,#2004-01-02 03:04:05#,\"\"\r\n"
            "-2147483648\r\n");
}

TEST_F(SequentialTextTest, YearHasFourDigits) {
  SequentialWriter out = writer();
  out.field(dateTime({100, 12, 31, 0, 0, 0})).field(dateTime({9999, 12, 31, 23, 59, 59}));
  out.flush();
  EXPECT_EQ(disk.content(path), "#0100-12-31 00:00:00#,#9999-12-31 23:59:59#");
}

TEST_F(SequentialTextTest, QuoteInsideATextIsNotEscaped) {
  SequentialWriter out = writer();
  out.field("a\"b").endRecord();
  out.flush();
  EXPECT_EQ(disk.content(path), "\"a\"b\"\r\n");
}

TEST_F(SequentialTextTest, WritesInLargePieces) {
  SequentialWriter out = writer();
  out.field(std::string(bufferSize - 10, 'x')).endRecord();
  EXPECT_EQ(disk.count(DiskAction::write, path), 0);
  out.field("more than the rest").endRecord();
  EXPECT_EQ(disk.count(DiskAction::write, path), 1);
}

TEST_F(SequentialTextTest, ReadsWhatIsWritten) {
  SequentialReader in = reader("\"a, b\",-2,#2004-01-02 03:04:05#,\"\"\r\n2147483647\r\n");
  EXPECT_EQ(in.text(), "a, b");
  EXPECT_EQ(in.number(), -2);
  EXPECT_EQ(in.date(), dateTime({2004, 1, 2, 3, 4, 5}));
  EXPECT_EQ(in.text(), "");
  EXPECT_FALSE(in.atEnd());
  EXPECT_EQ(in.number(), 2147483647);
  EXPECT_TRUE(in.atEnd());
}

TEST_F(SequentialTextTest, LinesMayEndInOtherWays) {
  SequentialReader in = reader("1\n\"two\"\n3\r\"four\"\r5");
  EXPECT_EQ(in.number(), 1);
  EXPECT_EQ(in.text(), "two");
  EXPECT_EQ(in.number(), 3);
  EXPECT_EQ(in.text(), "four");
  EXPECT_EQ(in.number(), 5);
  EXPECT_TRUE(in.atEnd());
}

TEST_F(SequentialTextTest, TextMayHoldLineEndsAndStandWithoutQuotes) {
  SequentialReader in = reader("\"one\r\ntwo\",three 3,4\r\n");
  EXPECT_EQ(in.text(), "one\r\ntwo");
  EXPECT_EQ(in.text(), "three 3");
  EXPECT_EQ(in.number(), 4);
}

TEST_F(SequentialTextTest, EmptyFileIsAtItsEnd) {
  EXPECT_TRUE(reader("").atEnd());
}

TEST_F(SequentialTextTest, FieldsBeyondTheEndFail) {
  SequentialReader in = reader("");
  EXPECT_FAILURE(inputPastEnd, in.text());
  EXPECT_FAILURE(inputPastEnd, in.number());
  EXPECT_FAILURE(inputPastEnd, in.date());
}

TEST_F(SequentialTextTest, TextWithoutAnEndFails) {
  SequentialReader in = reader("\"never closed,1\r\n");
  EXPECT_FAILURE(inputPastEnd, in.text());
}

TEST_F(SequentialTextTest, AnythingBehindAClosingQuoteFails) {
  SequentialReader in = reader("\"a\"b\",1\r\n");
  EXPECT_FAILURE(typeMismatch, in.text());
}

TEST_F(SequentialTextTest, NumbersThatAreNoneOrTooLargeFail) {
  SequentialReader in = reader("12x,,\"3\",2147483648\r\n");
  EXPECT_FAILURE(typeMismatch, in.number());
  EXPECT_FAILURE(typeMismatch, in.number());
  EXPECT_FAILURE(typeMismatch, in.number());
  EXPECT_FAILURE(overflow, in.number());
}

TEST_F(SequentialTextTest, DatesInAnyOtherFormFail) {
  for (const char* date :
       {"2004-11-02 16:41:08", "#2004-11-02 16:41:08", "#2004-11-02#", "#2004-11-02 16:41:08#x",
        "#2004-11-02T16:41:08#", "#04-11-02 16:41:08#", "#2004-11-2 16:41:08#",
        "#2004/11/02 16:41:08#", "#2oo4-11-02 16:41:08#", "#2004-11-02 16:4 :08#",
        "#2004-13-02 16:41:08#", "#2004-02-30 16:41:08#", "#2004-11-02 24:00:00#",
        "#2004-11-02 16:60:00#", "#2004-11-02 16:41:60#", "#0000-11-02 16:41:08#",
        "#-004-11-02 16:41:08#", ""}) {
    SequentialReader in = reader(std::string(date) + ",1\r\n");
    EXPECT_FAILURE(typeMismatch, in.date()) << date;
  }
}

// Each length puts another character of the record across the border of two pieces.
TEST_F(SequentialTextTest, RecordsAcrossPiecesAreReadWhole) {
  const std::string record = ",-12,#2004-01-02 03:04:05#,\"b\"\r\n";
  for (std::size_t before = bufferSize - record.size() - 2; before < bufferSize; ++before) {
    const std::string longText(before - 2, 'x');
    SequentialReader in = reader('"' + longText + '"' + record + "7\r\n");
    ASSERT_EQ(in.text(), longText) << before;
    ASSERT_EQ(in.number(), -12) << before;
    ASSERT_EQ(in.date(), dateTime({2004, 1, 2, 3, 4, 5})) << before;
    ASSERT_EQ(in.text(), "b") << before;
    ASSERT_EQ(in.number(), 7) << before;
    ASSERT_TRUE(in.atEnd()) << before;
  }
}

TEST_F(SequentialTextTest, TextLongerThanAPieceIsReadWhole) {
  const std::string longText(3 * bufferSize + 5, 'y');
  SequentialReader in = reader('"' + longText + "\"\r\n");
  EXPECT_EQ(in.text(), longText);
}

}  // namespace
}  // namespace quernstoke
