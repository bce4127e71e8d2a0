#include "console/reportPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/exitStatus.h"
#include "export/pageTemplate.h"
#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::HasSubstr;

class ReportPageTest : public testing::Test {
 protected:
  std::string refusal() const {
    try {
      reportPage(tree.root());
    } catch (const ScanError& error) {
      EXPECT_EQ(error.status, ExitStatus::failed);
      return error.what();
    }
    return {};
  }

  TemporaryTree tree;
  const std::string path = tree.path("results_template.html");
};

TEST_F(ReportPageTest, IsThatOfTheHomeChosen) {
  tree.file("results_template.html", "mine\n<File_data_inserted_here>\n");
  EXPECT_EQ(reportPage(tree.root()).head, "mine\r\n");
}

TEST_F(ReportPageTest, IsThatOfTheHomeThatTheVariableNames) {
  tree.file("results_template.html", "mine\n<File_data_inserted_here>\n");
  const ScopedVariable home("QUERNSTOKE_HOME", tree.root());
  EXPECT_EQ(reportPage(std::nullopt).head, "mine\r\n");
}

TEST_F(ReportPageTest, IsTheProgramsOwnWhereThereIsNone) {
  const PageTemplate page = reportPage(tree.root());
  EXPECT_EQ(page.head, splitPageTemplate(builtInPage).head);
  EXPECT_NO_THROW(reportPage(tree.path("missing")));
}

TEST_F(ReportPageTest, TheProgramsOwnHasATableForTheRows) {
  const PageTemplate page = splitPageTemplate(builtInPage);
  EXPECT_TRUE(page.hasMarker);
  EXPECT_EQ(page.tail, "");
  EXPECT_TRUE(page.head.ends_with("<tbody>\r\n"));
  EXPECT_TRUE(page.rest.starts_with("</tbody>\r\n</table>\r\n"));
  for (const char* part : {"<meta charset=\"utf-8\">", ".colour1 {", ".colour2 {",
                           "prefers-color-scheme: dark", "@media print"})
    EXPECT_THAT(page.head, HasSubstr(part));
}

TEST_F(ReportPageTest, OneWithoutTheMarkerIsToldAndNotPassedOver) {
  tree.file("results_template.html", "mine\n");
  EXPECT_EQ(refusal(), path + ": has no <File_data_inserted_here>");
}

// The beginning of the process's own memory is a file that opens, and fails when it is read.
TEST_F(ReportPageTest, OneThatCannotBeReadToItsEndIsTold) {
  tree.link("results_template.html", "/proc/self/mem");
  EXPECT_EQ(refusal(), path + ": can't be read to its end");
}

TEST_F(ReportPageTest, OneThatIsNoFileIsToldAndNotWaitedFor) {
  tree.fifo("results_template.html");
  EXPECT_EQ(refusal(), path + ": not a regular file");
}

}  // namespace
}  // namespace quernstoke
