#include "export/resultsFile.h"

#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "export/resultsRows.h"
#include "platform/platform.h"
#include "results/matchGroupIndex.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Lt;
using testing::StartsWith;

constexpr const char* outPath = "C:\\out\\results";
constexpr const char* templatePath = "C:\\Quernstoke\\results_template.html";

class ResultsFileTest : public EngineTest {
 protected:
  ResultsFileTest() {
    disk.directory("C:\\out");
    disk.file(templatePath, "<table>\n<File_data_inserted_here>\n</table>\n");
    layout.blockMarkers = {"", "#"};
    showTwo();
  }

  static void show(const std::vector<CatalogueFile>& files) {
    buildCatalogue(files);
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  }
  static void showTwo(int matchNumber = 0) {
    show({{"a.txt", "c:\\one", 1234, matchNumber}, {"b.txt", "c:\\two", 1234, matchNumber}});
  }
  bool write(ResultsFormat format, const char* name = "results") {
    layout.format = format;
    return basWriteResultsFile("C:\\out", name, layout);
  }
  // A failed export has told this, and has closed its files.
  void expectFailure(ResultsFormat format, const std::string& message) {
    EXPECT_FALSE(write(format));
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(message));
    EXPECT_EQ(disk.openFiles(), 0);
  }

  ResultsLayout layout;
};

// Dates as in 2/01/2005.
class DayFirst : public PlainLocale {
 public:
  std::string shortDate(DateTime when) override {
    const CivilTime civil = civilTime(when);
    return std::to_string(civil.day) + (civil.month < 10 ? "/0" : "/") +
           std::to_string(civil.month) + "/" + std::to_string(civil.year);
  }
};

class ResultsBytesTest : public ResultsFileTest {
 protected:
  ResultsBytesTest() {
    platform.locale = &dayFirst;
    usePlatform(platform);
    setDates();
  }
  static void setDates() {
    for (Int32 file = 1; file <= FileCount; ++file)
      FileTable.FileDate[file] = dateTime({2005, 1, 2, 16, 0, 0});
  }

  DayFirst dayFirst;
};

TEST_F(ResultsBytesTest, CsvByteByByte) {
  EXPECT_TRUE(write(ResultsFormat::csv));
  EXPECT_EQ(disk.content(outPath),
            "Marker,Block#,Name,Directory,Date,Size\r\n"
            "\"\",1,\"a.txt\",\"c:\\one\",2/01/2005,1234\r\n"
            "\"\",1,\"b.txt\",\"c:\\two\",2/01/2005,1234\r\n");
}

TEST_F(ResultsBytesTest, CsvOfAnOddMatchNumberAndOfTheNextBlockByteByByte) {
  showTwo(1);
  setDates();
  EXPECT_TRUE(write(ResultsFormat::csv));
  EXPECT_EQ(disk.content(outPath),
            "Marker,Block#,Name,Directory,Date,Size\r\n"
            "\"#\",1,\"a.txt\",\"c:\\one\",2/01/2005,1234\r\n"
            "\"#\",1,\"b.txt\",\"c:\\two\",2/01/2005,1234\r\n");
  show({{"a.txt", "c:\\one", 1, 0}, {"b.txt", "c:\\two", 1, 1}});
  setDates();
  EXPECT_TRUE(write(ResultsFormat::csv));
  EXPECT_THAT(disk.content(outPath),
              HasSubstr("\r\n\"#\",2,\"b.txt\",\"c:\\two\",2/01/2005,1\r\n"));
}

TEST_F(ResultsBytesTest, HtmlByteByByte) {
  EXPECT_TRUE(write(ResultsFormat::html));
  EXPECT_EQ(disk.content(outPath),
            "<table>\r\n"
            "<tr><td class=\"colour1\">a.txt</td><td class=\"colour1\">c:\\one</td>"
            "<td class=\"colour1\">2/01/2005</td><td class=\"colour1\">1,234</td></tr>\r\n"
            "<tr><td class=\"colour1\">b.txt</td><td class=\"colour1\">c:\\two</td>"
            "<td class=\"colour1\">2/01/2005</td><td class=\"colour1\">1,234</td></tr>\r\n"
            "</table>\r\n");
}

TEST_F(ResultsFileTest, ReplacesAnEarlierFile) {
  disk.file(outPath, std::string(100'000, 'x'));
  EXPECT_TRUE(write(ResultsFormat::csv));
  EXPECT_THAT(disk.content(outPath), StartsWith("Marker,"));
  EXPECT_THAT(disk.content(outPath).size(), Lt(200U));
  EXPECT_EQ(disk.openFiles(), 0);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ResultsFileTest, TextOnBothSidesOfTheMarkerStandsAroundTheRows) {
  disk.file(templatePath, "a\r\n<tbody><File_data_inserted_here></tbody>\r\nb");
  EXPECT_TRUE(write(ResultsFormat::html));
  const std::string page = disk.content(outPath);
  EXPECT_THAT(page, StartsWith("a\r\n<tbody>\r\n<tr>"));
  EXPECT_TRUE(page.ends_with("</tr></tbody>\r\nb\r\n"));
}

TEST_F(ResultsFileTest, CsvNeedsNoTemplate) {
  disk.erase(templatePath);
  EXPECT_TRUE(write(ResultsFormat::csv));
}

TEST_F(ResultsFileTest, ALongTemplateArrivesWhole) {
  const std::string line(1000, 'x');
  std::string text;
  for (int i = 0; i < 300; ++i)
    text += line + "\r\n";
  disk.file(templatePath, text + "<File_data_inserted_here>\r\n" + text);
  FileCount = 0;
  EXPECT_TRUE(write(ResultsFormat::html));
  EXPECT_EQ(disk.content(outPath), text + text);
}

// A scan that ends with an empty list leaves the groups of the list before.
TEST_F(ResultsFileTest, WithoutFilesNothingIsListed) {
  FileCount = 0;
  EXPECT_TRUE(write(ResultsFormat::csv));
  EXPECT_EQ(disk.content(outPath), "Marker,Block#,Name,Directory,Date,Size\r\n");
  EXPECT_TRUE(write(ResultsFormat::html));
  EXPECT_EQ(disk.content(outPath), "<table>\r\n</table>\r\n");
}

TEST_F(ResultsFileTest, ThePageDoesNotReplaceItsTemplate) {
  const std::string before = disk.content(templatePath);
  layout.format = ResultsFormat::html;
  EXPECT_FALSE(basWriteResultsFile("c:\\Quernstoke", "Results_template.html", layout));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Error creating results file. Reason: Path/File access error"));
  EXPECT_EQ(disk.content(templatePath), before);
}

// The same directory has many spellings.
TEST_F(ResultsFileTest, NeitherDoesATableUnderAnotherSpelling) {
  const std::string before = disk.content(templatePath);
  layout.format = ResultsFormat::csv;
  EXPECT_FALSE(basWriteResultsFile("C:/Quernstoke\\", "results_template.html", layout));
  EXPECT_EQ(disk.content(templatePath), before);
}

TEST_F(ResultsFileTest, ALongListIsWrittenInPieces) {
  std::vector<CatalogueFile> files;
  for (int i = 0; i < 20'000; ++i)
    files.push_back({"a long enough name", "C:\\x", 1, 0});
  show(files);
  EXPECT_TRUE(write(ResultsFormat::csv));
  const std::string text = disk.content(outPath);
  EXPECT_EQ(std::ranges::count(text, '\n'), 20'001);
  EXPECT_EQ(disk.count(DiskAction::write, outPath), static_cast<int>(text.size() / 65'536) + 1);
}

TEST_F(ResultsFileTest, AFileThatCannotBeCreatedIsTold) {
  disk.erase("C:\\out");
  expectFailure(ResultsFormat::csv, "Error creating results file. Reason: Path not found");
}

TEST_F(ResultsFileTest, ADirectoryIsNotReplaced) {
  disk.directory(outPath);
  expectFailure(ResultsFormat::html, "Error creating results file. Reason: Path/File access error");
}

TEST_F(ResultsFileTest, AReadOnlyFileIsNotReplaced) {
  disk.file(outPath, "kept");
  disk.setAttributes(outPath, attributeReadOnly);
  expectFailure(ResultsFormat::csv, "Error creating results file. Reason: Path/File access error");
  EXPECT_EQ(disk.content(outPath), "kept");
}

TEST_F(ResultsFileTest, WithoutTheTemplateAnEmptyFileIsLeftBehind) {
  disk.erase(templatePath);
  disk.file(outPath, "older");
  expectFailure(ResultsFormat::html,
                "Can't find template results file 'C:\\Quernstoke\\results_template.html'");
  EXPECT_EQ(disk.content(outPath), "");
}

TEST_F(ResultsFileTest, WithoutTheMarkerTheTemplateIsLeftBehind) {
  disk.file(templatePath, "<table>\n</table>\n");
  expectFailure(ResultsFormat::html,
                "Can not find insert market in template file 'results_template.html'. Text "
                "'<File_data_inserted_here>' missing");
  EXPECT_EQ(disk.content(outPath), "<table>\r\n</table>\r\n");
}

TEST_F(ResultsFileTest, ATemplateThatCannotBeReadIsTold) {
  disk.failOn(DiskAction::read, templatePath, FailureNumber::deviceError);
  expectFailure(ResultsFormat::html, "Error outputting results data. Reason: Device I/O error");
}

TEST_F(ResultsFileTest, AFullDiskIsTold) {
  for (const ResultsFormat format : {ResultsFormat::html, ResultsFormat::csv}) {
    dialogBoxes.messages.clear();
    disk.freeBytes = 10;
    expectFailure(format, "Error outputting results data. Reason: Disk full");
  }
}

TEST_F(ResultsFileTest, ADiskThatFillsUpInTheMiddleEndsTheExport) {
  show(std::vector<CatalogueFile>(10'000, {"a long enough name", "C:\\x", 1, 0}));
  disk.failOn(DiskAction::write, outPath, FailureNumber::diskFull, 2);
  expectFailure(ResultsFormat::csv, "Error outputting results data. Reason: Disk full");
  EXPECT_EQ(disk.count(DiskAction::write, outPath), 2);
}

// Some file systems tell of a full disk only then.
TEST_F(ResultsFileTest, AFailureToCloseIsTold) {
  disk.failOn(DiskAction::close, outPath, FailureNumber::diskFull);
  EXPECT_FALSE(write(ResultsFormat::csv));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Error outputting results data. Reason: Disk full"));
}

TEST_F(ResultsFileTest, AGroupOutsideTheCatalogueIsTold) {
  MatchGroupTable[1] = {1, 1'000'000};
  expectFailure(ResultsFormat::csv,
                "Error outputting results data. Reason: Subscript out of range");
}

}  // namespace
}  // namespace quernstoke
