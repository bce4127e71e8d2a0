#include "console/exportReport.h"

#include <gtest/gtest.h>

#include "console/foundSets.h"
#include "console/machinePaths.h"
#include "console/output.h"
#include "export/pageTemplate.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/temporaryTree.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::HasSubstr;

class ExportReportTest : public EngineTest {
 protected:
  ExportReportTest() { basDefaultProfile("GLOBAL", ""); }

  template <class Write>
  std::string written(Write write) {
    Output output(tree.path("report"));
    MachinePaths paths(drives);
    groupSets();
    write(paths, output);
    output.finish();
    return tree.content("report");
  }
  std::string csv() { return written(writeCsvReport); }
  std::string html(std::string_view page) {
    return written([&](MachinePaths& paths, Output& output) {
      writeHtmlReport(splitPageTemplate(page), paths, output);
    });
  }

  TemporaryTree tree;
  DriveTable drives;
};

TEST_F(ExportReportTest, CsvTellsTheMachinesNames) {
  buildCatalogue({{"a", "C:\\x", 1234, 0}, {"a", "C:\\x", 1234, 0}});
  EXPECT_EQ(csv(),
            "Marker,Block#,Name,Directory,Date,Size\r\n"
            "\"\",1,\"a\",\"/x\",1970-01-01,1234\r\n"
            "\"\",1,\"a\",\"/x\",1970-01-01,1234\r\n");
}

TEST_F(ExportReportTest, CsvIsLaidOutAsTheSettingsSay) {
  GlobalSettings.ResultsNumberEachBlock = false;
  GlobalSettings.ResultsBlockIndicator[1] = "=";
  buildCatalogue({{"a", "C:\\x", 1, 0}, {"a", "C:\\x", 1, 0}});
  EXPECT_THAT(csv(), HasSubstr("Marker,Name,Directory,Date,Size\r\n\"=\",\"a\","));
  GlobalSettings.ResultsBlockMarkers = false;
  EXPECT_THAT(csv(), HasSubstr("Name,Directory,Date,Size\r\n\"a\","));
}

TEST_F(ExportReportTest, BlocksAreNumberedWithoutGaps) {
  buildCatalogue({{"a", "C:\\x", 1, 0},
                  {"b", "C:\\x", 1, 1},
                  {"b", "C:\\x", 1, 1},
                  {"c", "C:\\x", 1, 5},
                  {"c", "C:\\x", 1, 5}});
  const std::string text = csv();
  EXPECT_THAT(text, HasSubstr("\"#\",1,\"b\","));
  EXPECT_THAT(text, HasSubstr("\"\",2,\"c\","));
}

// Names of the machine can hold what the program's own can't.
TEST_F(ExportReportTest, QuotesAreDoubledInCsv) {
  const std::string name = windowsName("a\"b\nc,d");
  buildCatalogue({{name, "C:\\" + windowsName("\""), 1, 0}, {name, "C:\\x", 1, 0}});
  const std::string text = csv();
  EXPECT_THAT(text, HasSubstr(",\"a\"\"b\nc,d\",\"/\"\"\","));
  EXPECT_THAT(text, HasSubstr(",\"a\"\"b\nc,d\",\"/x\","));
}

TEST_F(ExportReportTest, MarkupInNamesIsNoneInHtml) {
  const std::string name = windowsName("<script>&amp;\"'");
  buildCatalogue({{name, "C:\\" + windowsName("<b>"), 1, 0}, {name, "C:\\x", 1, 0}});
  EXPECT_THAT(html("<File_data_inserted_here>"),
              HasSubstr("<td class=\"colour1\">&lt;script&gt;&amp;amp;\"'</td>"
                        "<td class=\"colour1\">/&lt;b&gt;</td>"));
}

TEST_F(ExportReportTest, HtmlIsMadeFromThePage) {
  buildCatalogue({{"a", "C:\\x", 1234, 0}, {"a", "C:\\x", 1234, 0}});
  const std::string row =
      "<tr><td class=\"colour1\">a</td><td class=\"colour1\">/x</td>"
      "<td class=\"colour1\">1970-01-01</td><td class=\"colour1\">1,234</td></tr>";
  EXPECT_EQ(html("<table>\n<File_data_inserted_here></table>\nend\n"),
            "<table>\r\n" + row + "\r\n" + row + "</table>\r\nend\r\n");
}

TEST_F(ExportReportTest, WithoutSetsThereAreNoRows) {
  buildCatalogue({});
  EXPECT_EQ(csv(), "Marker,Block#,Name,Directory,Date,Size\r\n");
  EXPECT_EQ(html("a\n<File_data_inserted_here>\nb\n"), "a\r\nb\r\n");
}

}  // namespace
}  // namespace quernstoke
