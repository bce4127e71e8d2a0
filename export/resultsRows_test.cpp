#include "export/resultsRows.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "results/gridPaging.h"
#include "results/matchGroupIndex.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class ResultsRowsTest : public EngineTest {
 protected:
  ResultsRowsTest() {
    layout.format = ResultsFormat::csv;
    layout.blockMarkers = {"", "#"};
  }

  static void show(const std::vector<CatalogueFile>& sortedFiles) {
    buildCatalogue(sortedFiles);
    basSetupMatchGroupInfo(ResultsGroup == resultsGroup::match ? "MATCHNUM" : "DIRECTORY",
                           startMode::none);
  }
  static void date(int file, const CivilTime& when) { FileTable.FileDate[file] = dateTime(when); }
  std::vector<std::string> lines(std::string_view tail = {}) const {
    std::vector<std::string> written;
    writeResultsRows(layout, programNaming(), tail, [&](std::string_view line) {
      EXPECT_THAT(std::string(line), EndsWith("\r\n"));
      written.emplace_back(line.substr(0, line.size() - 2));
    });
    return written;
  }
  // The first fields of the lines of files.
  std::string markers() const {
    std::string all;
    const std::vector<std::string> written = lines();
    for (std::size_t i = 1; i < written.size(); ++i)
      all += written[i].substr(0, written[i].find(',') + 1);
    return all;
  }

  ResultsLayout layout;
};

TEST_F(ResultsRowsTest, CsvTellsMarkerBlockNameDirectoryDateAndSize) {
  show({{"a.txt", "C:\\one", 1234, 0}, {"b.txt", "C:\\two", 1234, 0}});
  date(1, {2005, 1, 2, 3, 4, 5});
  date(2, {1999, 12, 31, 23, 59, 59});
  EXPECT_THAT(lines(), ElementsAre("Marker,Block#,Name,Directory,Date,Size",
                                   R"("",1,"a.txt","C:\one",2005-01-02,1234)",
                                   R"("",1,"b.txt","C:\two",1999-12-31,1234)"));
}

TEST_F(ResultsRowsTest, CsvLeavesOutWhatIsNotWanted) {
  show({{"a", "C:\\x", 1, 0}});
  layout.useBlockMarkers = false;
  EXPECT_THAT(lines(),
              ElementsAre("Block#,Name,Directory,Date,Size", R"(1,"a","C:\x",1970-01-01,1)"));
  layout.numberBlocks = false;
  EXPECT_THAT(lines(), ElementsAre("Name,Directory,Date,Size", R"("a","C:\x",1970-01-01,1)"));
  layout.useBlockMarkers = true;
  EXPECT_THAT(lines(),
              ElementsAre("Marker,Name,Directory,Date,Size", R"("","a","C:\x",1970-01-01,1)"));
}

TEST_F(ResultsRowsTest, BlocksTakeTurnsWithTheMarkers) {
  layout.blockMarkers = {"-", "+"};
  show({{"a", "C:\\x", 1, 4}, {"b", "C:\\x", 1, 4}, {"c", "C:\\x", 1, 6}, {"d", "C:\\x", 1, 8}});
  EXPECT_EQ(markers(), R"("-","-","+","-",)");
}

// Only the number of the first block counts, though the grid begins each page anew.
TEST_F(ResultsRowsTest, AnOddMatchNumberInFrontBeginsWithTheSecondMarker) {
  layout.blockMarkers = {"-", "+"};
  show({{"a", "C:\\x", 1, 3}, {"b", "C:\\x", 1, 4}, {"c", "C:\\x", 1, 6}});
  EXPECT_EQ(markers(), R"("+","-","+",)");
}

TEST_F(ResultsRowsTest, MarkersAndNamesAreWrittenAsTheyAre) {
  layout.blockMarkers = {"\"<,>\"", ""};
  show({{"a\"b,&<i>.txt", "C:\\\xFF", 1, 0}});
  EXPECT_EQ(lines()[1], "\"\"<,>\"\",1,\"a\"b,&<i>.txt\",\"C:\\\xFF\",1970-01-01,1");
  layout.format = ResultsFormat::html;
  EXPECT_THAT(lines()[0], HasSubstr("\">a\"b,&<i>.txt</td>"));
}

TEST_F(ResultsRowsTest, HtmlTellsNameDirectoryDateAndSizeInCellsOfOneClass) {
  layout.format = ResultsFormat::html;
  show({{"a.txt", "C:\\one", 1234567, 0}, {"b", "C:\\two", 0, 1}});
  date(1, {2005, 1, 2});
  EXPECT_THAT(
      lines(),
      ElementsAre(R"(<tr><td class="colour1">a.txt</td><td class="colour1">C:\one</td>)"
                  R"(<td class="colour1">2005-01-02</td><td class="colour1">1,234,567</td></tr>)",
                  R"(<tr><td class="colour2">b</td><td class="colour2">C:\two</td>)"
                  R"(<td class="colour2">1970-01-01</td><td class="colour2">0</td></tr>)"));
}

TEST_F(ResultsRowsTest, ByDirectoryTheBlocksAreDirectories) {
  ResultsGroup = resultsGroup::directory;
  show({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 1}, {"a", "C:\\y", 1, 0}, {"z", "C:\\y", 1, -2}});
  EXPECT_THAT(lines(),
              ElementsAre("Marker,Block#,Name,Directory,Date,Size",
                          R"("#",1,"a","C:\x",1970-01-01,1)", R"("#",1,"b","C:\x",1970-01-01,1)",
                          R"("",2,"a","C:\y",1970-01-01,1)", R"("",2,"z","C:\y",1970-01-01,1)"));
}

TEST_F(ResultsRowsTest, ByDirectoryTheRowOfTheFirstOneDecidesTheMarker) {
  ResultsGroup = resultsGroup::directory;
  show({{"a", "C:\\x", 1, 0}, {"b", "C:\\y", 1, 0}});
  FileTable.FileStatus[statusState][1] = fileState::removed;
  basSetupMatchGroupInfo("DIRECTORY", startMode::none);
  EXPECT_EQ(markers(), R"("",)");
}

TEST_F(ResultsRowsTest, FilesWithoutAMatchAreInNoBlock) {
  show({{"a", "C:\\x", 1, -2}, {"b", "C:\\x", 1, 0}});
  EXPECT_EQ(lines().size(), 2U);
}

TEST_F(ResultsRowsTest, DeletedFilesAreWrittenLikeAllOthers) {
  show({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 0}});
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  EXPECT_THAT(lines()[1], HasSubstr("\"a\""));
}

TEST_F(ResultsRowsTest, AnEntryOfAnArchiveIsShownBehindIt) {
  show({{"a", "C:\\x.zip", 1, -2}, {"b", "docs", 1, 0}});
  DirTable.set(1, {"C:\\x.zip", dirKind::zipFile, noParent, false});
  DirTable.set(2, {"docs", dirKind::zipFolder, 1, false});
  EXPECT_THAT(lines()[1], HasSubstr(R"("b","C:\x.zip >> docs",)"));
}

TEST_F(ResultsRowsTest, WithoutBlocksThereAreTheTitlesAlone) {
  EXPECT_THAT(lines(), ElementsAre("Marker,Block#,Name,Directory,Date,Size"));
  layout.format = ResultsFormat::html;
  EXPECT_THAT(lines("tail"), ElementsAre());
}

TEST_F(ResultsRowsTest, TheTailStandsBehindTheLastFileOnItsLine) {
  layout.format = ResultsFormat::html;
  show({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 0}});
  EXPECT_THAT(lines("</table>"),
              ElementsAre(Not(HasSubstr("</table>")), EndsWith("</td></tr></table>")));
  layout.format = ResultsFormat::csv;
  EXPECT_THAT(lines("</table>").back(), Not(HasSubstr("</table>")));
}

// The tail goes by the number of the catalogue's last file, not by the last line.
TEST_F(ResultsRowsTest, TheTailIsLostWhenTheLastFileIsInNoBlock) {
  layout.format = ResultsFormat::html;
  show({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 0}, {"c", "C:\\x", 1, 0}});
  FileTable.FileStatus[statusState][3] = fileState::removed;
  basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  EXPECT_EQ(lines("</table>").size(), 2U);
  EXPECT_THAT(lines("</table>").back(), Not(HasSubstr("</table>")));
}

}  // namespace
}  // namespace quernstoke
