#include "mainui/helpStrings.h"

#include <map>

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using HelpStringsTest = EngineTest;

// What every version of the program has said first about each of its controls.
const std::map<int, const char*> openingWords = {
    {101, "Match option: This option will match on all files with the same name"},
    {102, "Match option: This option will match on all files with the same content"},
    {103, "Match option: This option will match on all files with the same size."},
    {104, "If this option is enabled and the 'Transfer files locally' option"},
    {105, "In these fields enter your desired Minimum and Maximum file size limits"},
    {106, "NEW - Start a fresh scan of the directories selected."},
    {107, "Enable this option if you wish to scan files within ZIP files."},
    {108,
     "Enter the percentage of the file you wish to scan before assuming it's a duplicate. The "
     "default is 100%."},
    {110, "Enter the description of your profile (optional)."},
    {111, "Use this button to add a new directory  to the profile. "},
    {112, "Use this button to edit an existing directory specification in your profile."},
    {113, "Use this button to delete an existing directory specification from your profile."},
    {114, "Use this button to delete the currently selected profile."},
    {115, "Display previous scan results"},
    {116, "Exit Quernstoke.NEWLINENEWLINEPreviously PAUSED scans can still be resumed later."},
    {118, "Use this button to add or edit the file types list."},
    {119, "If this option is enabled and the 'Slow Media' option"},
    {120,
     "Enter the maximum disk space to be used for temporary storage during the scanning process."},
    {121, "Use this field to specify the location for storing temporary files. "},
    {122, "The beginning of each file read is stored in a buffer"},
    {123, "Enter the buffer size in bytes. For local hard drives 8192 is the most efficient."},
    {128,
     "Use this button to filter (remove) entries from the grid. The files are not actually "
     "deleted. To add the files to the grid again you have to rescan for duplicate files."},
    {133, "Use this button to start the scanning process."},
    {140, "Enable this option if you wish to include hidden files in your scan."},
    {141, "Enable this option if you wish to include system files in your scan."},
    {142, "This list shows which directories have been included or excluded for scanning."},
    {1002,
     "Choose your scan options.NEWLINENEWLINEIn the 'Scan Options' area choose your scan options."},
    {1003,
     "Starting the scan.NEWLINENEWLINEWhile the scan is running you can click the pause button to "
     "temporarily stop the scanning."},
};

const std::map<int, const char*> wholeTexts = {
    {109,
     "Select your profile from the drop down list or choose <New Profile> to create a new "
     "profile."},
    {150, "The current profile name."},
    {151,
     "Total number of files being scanned, excluding some files that do not meet the criteria."},
    {152, "Total number of directories scanned."},
    {153, "Total number of duplicate files found."},
    {154, "Current profile state."},
    {162, "Percentage of scan completed."},
    {1001,
     "Select your directories.NEWLINENEWLINEIn the 'What to scan' area add the directories and "
     "file "
     "types you wish to scan or exclude from the scan"},
    {1004,
     "Previous scan results are available.NEWLINENEWLINEClick on the magnifying glass next to the "
     "profile description to see the results from a previous scan."},
};

TEST_F(HelpStringsTest, TextsBeginWithTheirWordsAndGoOnToTheEndOfASentence) {
  for (const auto& [id, words] : openingWords) {
    const std::string text(helpString(id));
    EXPECT_THAT(text, StartsWith(words));
    EXPECT_GT(text.size(), std::string(words).size()) << id;
    EXPECT_THAT(text, EndsWith("."));
  }
}

TEST_F(HelpStringsTest, ShortTextsHoldTheirWordsAndNoMore) {
  for (const auto& [id, words] : wholeTexts)
    EXPECT_EQ(helpString(id), words);
}

TEST_F(HelpStringsTest, EveryNumberThatAWindowAsksForHasAText) {
  for (const auto& [first, last] :
       {std::pair(101, 133), {140, 143}, {150, 154}, {161, 165}, {1000, 1004}})
    for (int id = first; id <= last; ++id)
      EXPECT_THAT(helpString(id), Not("")) << id;
}

TEST_F(HelpStringsTest, UnknownNumberHasNoText) {
  for (const int id : {-1, 0, 100, 134, 999, 1005})
    EXPECT_EQ(helpString(id), "") << id;
}

// The help line of the scan window has room for one line.
TEST_F(HelpStringsTest, TextsOfTheScanWindowAreOneLine) {
  for (const int id : {150, 161, 162, 163, 164, 165})
    EXPECT_THAT(helpString(id), Not(HasSubstr("NEWLINE"))) << id;
}

TEST_F(HelpStringsTest, WelcomeTextNamesTheProgramOnALineOfItsOwn) {
  EXPECT_THAT(helpText(1000),
              StartsWith("Welcome to:\r\n\r\nQuernstoke\r\n\r\nThis utility will scan selected "
                         "drives/folders for duplicate files.\r\n\r\nGetting started tip:\r\n"));
}

TEST_F(HelpStringsTest, ShownTextHasLineBreaksInPlaceOfTheWord) {
  EXPECT_EQ(helpText(1004),
            "Previous scan results are available.\r\n\r\nClick on the magnifying glass next to the "
            "profile description to see the results from a previous scan.");
  EXPECT_EQ(helpText(999), "");
}

TEST_F(HelpStringsTest, WordBreaksTheLineInAnyLetterCase) {
  EXPECT_EQ(withLineBreaks("oneNewLinetwonewlineNEWLINEthree, a new line"),
            "one\r\ntwo\r\n\r\nthree, a new line");
}

}  // namespace
}  // namespace quernstoke
