#include "export/pageTemplate.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

const std::string marker(pageTemplateMarker);

TEST(PageTemplateTest, RowsGoWhereTheMarkerStands) {
  const PageTemplate page = splitPageTemplate("<table>\r\n" + marker + "\r\n</table>\r\n");
  EXPECT_TRUE(page.hasMarker);
  EXPECT_EQ(page.head, "<table>\r\n");
  EXPECT_EQ(page.tail, "");
  EXPECT_EQ(page.rest, "</table>\r\n");
}

TEST(PageTemplateTest, TextInFrontOfTheMarkerIsALineAndTextBehindItTheTail) {
  const PageTemplate page = splitPageTemplate("a\r\nb " + marker + " c\r\nd\r\n");
  EXPECT_EQ(page.head, "a\r\nb \r\n");
  EXPECT_EQ(page.tail, " c");
  EXPECT_EQ(page.rest, "d\r\n");
}

TEST(PageTemplateTest, OnlyTheFirstMarkerCounts) {
  const PageTemplate page = splitPageTemplate(marker + "a" + marker + "\r\n" + marker + "\r\n");
  EXPECT_EQ(page.head, "");
  EXPECT_EQ(page.tail, "a" + marker);
  EXPECT_EQ(page.rest, marker + "\r\n");
}

TEST(PageTemplateTest, LinesMayHaveTheEndsOfAnySystem) {
  const PageTemplate page = splitPageTemplate("a\nb\r\n\nc\rd\n" + marker + "\ne");
  EXPECT_EQ(page.head, "a\r\nb\r\n\r\nc\r\nd\r\n");
  EXPECT_EQ(page.rest, "e\r\n");
}

TEST(PageTemplateTest, EmptyLinesStay) {
  const PageTemplate page = splitPageTemplate("\n\n" + marker + "\n\n\n");
  EXPECT_EQ(page.head, "\r\n\r\n");
  EXPECT_EQ(page.rest, "\r\n\r\n");
}

TEST(PageTemplateTest, TailIsCutBehind9999Characters) {
  std::string tail;
  for (int i = 0; i < 10'000; ++i)
    tail += "\u00E9";
  EXPECT_EQ(splitPageTemplate(marker + tail).tail, tail.substr(2));
}

TEST(PageTemplateTest, WithoutAMarkerAllLinesAreTheHead) {
  const PageTemplate page = splitPageTemplate("a\n<file_data_inserted_here>\n");
  EXPECT_FALSE(page.hasMarker);
  EXPECT_EQ(page.head, "a\r\n<file_data_inserted_here>\r\n");
  EXPECT_EQ(page.rest, "");
  EXPECT_EQ(splitPageTemplate("").head, "");
}

}  // namespace
}  // namespace quernstoke
