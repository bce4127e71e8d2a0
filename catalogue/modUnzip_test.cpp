#include "catalogue/modUnzip.h"

#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "core/text.h"
#include "platform/platform.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* zip = "C:\\a\\b.zip";

class ZipTest : public EngineTest {
 protected:
  ZipTest() {
    buildCatalogue({});
    zipRow_ = addZip(zip);
    RunState = runState::buildingList;
    MaxSizeBytes = Int32(1000);
    basBuildExtensionList("*.*", ExtensionList);
  }

  static Int32 addZip(const std::string& path) {
    bool existed = false;
    return basAddDirToList(path, dirKind::zipFile, noParent, existed);
  }

  void pack(std::vector<ScriptedEntry> entries, const std::string& path = zip) {
    archiveLibrary.contents[path] = std::move(entries);
  }

  std::string scan() { return basScanThisZip(zip, zipRow_); }

  // The folders in zip files, each with the row of its archive: "docs@1".
  static std::vector<std::string> folders() {
    std::vector<std::string> found;
    for (Int32 row = 1; row <= DirCount; ++row)
      if (DirTable[row].kind == dirKind::zipFolder)
        found.push_back(DirTable[row].name + "@" + toText(DirTable[row].parent));
    return found;
  }

  Int32 zipRow_;
};

TEST_F(ZipTest, EachFolderWithFilesGetsARowAndTheRootOneWithoutAName) {
  pack({{"a/", ""}, {"a/b.txt", "12"}, {"c.txt", "345"}});
  EXPECT_EQ(scan(), "");
  EXPECT_THAT(folders(), ElementsAre("a@1", "@1"));
  EXPECT_THAT(fileNames(), ElementsAre("b.txt", "c.txt"));
  EXPECT_THAT(fileSizes(), ElementsAre(2, 3));
  EXPECT_EQ(FileTable.FileDirNum[1], 2);
  EXPECT_EQ(FileTable.FileDirNum[2], 3);
  EXPECT_EQ(FileTable.FileDate[1], dateTime({2004, 5, 6, 7, 8, 0}));
}

TEST_F(ZipTest, NewRowIsUnmatchedUntickedAndNotTemporary) {
  pack({{"a.txt", "1"}});
  scan();
  EXPECT_EQ(FileTable.FileStatus[statusState][1], fileState::normal);
  EXPECT_EQ(FileTable.FileStatus[statusMatch][1], noMatch);
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][1], 0);
  EXPECT_EQ(FileTable.FileStatus[statusTick][1], 0);
  EXPECT_FALSE(DirTable[2].temporary);
}

// A file of a directory gets -1 here; an entry's row keeps what the row had.
TEST_F(ZipTest, BlockChainOfAnEntryIsLeftAsTheRowHadIt) {
  FileTable.FileStatus[statusChain][1] = 7;
  pack({{"a.txt", "1"}});
  scan();
  EXPECT_EQ(FileTable.FileStatus[statusChain][1], 7);
}

TEST_F(ZipTest, EntriesOfOneNameAreBothTaken) {
  pack({{"a.txt", "1"}, {"a.txt", "2"}});
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("a.txt", "a.txt"));
}

TEST_F(ZipTest, SameFolderInTwoArchivesHasTwoRows) {
  pack({{"docs/a.txt", "1"}});
  pack({{"docs/b.txt", "1"}}, "C:\\a\\c.zip");
  const Int32 second = addZip("C:\\a\\c.zip");
  scan();
  basScanThisZip("C:\\a\\c.zip", second);
  EXPECT_THAT(folders(), ElementsAre("docs@1", "docs@2"));
}

TEST_F(ZipTest, FoldersAreToldApartByLetterCase) {
  pack({{"docs/a", "1"}, {"Docs/b", "1"}, {"docs/c", "1"}});
  scan();
  EXPECT_THAT(folders(), ElementsAre("docs@1", "Docs@1"));
  EXPECT_EQ(FileTable.FileDirNum[3], FileTable.FileDirNum[1]);
}

// A directory of the disk may have the name that a folder in the archive has.
TEST_F(ZipTest, DirectoryOfTheSameNameIsNoFolderOfTheArchive) {
  DirTable.set(++DirCount, {"docs", dirKind::directory, zipRow_});
  pack({{"docs/a.txt", "1"}});
  scan();
  EXPECT_THAT(folders(), ElementsAre("docs@1"));
  EXPECT_EQ(FileTable.FileDirNum[1], 3);
}

// Nor is one that a larger catalogue left behind the last row.
TEST_F(ZipTest, RowBeyondTheLastDirectoryIsNoFolderOfTheArchive) {
  DirTable.set(DirCount + 2, {"docs", dirKind::zipFolder, zipRow_});
  pack({{"docs/a.txt", "1"}});
  scan();
  EXPECT_THAT(folders(), ElementsAre("docs@1"));
  EXPECT_EQ(FileTable.FileDirNum[1], 2);
}

TEST_F(ZipTest, BothSizeLimitsAreInclusive) {
  MinSizeBytes = Int32(2);
  MaxSizeBytes = Int32(3);
  pack({{"1", "1"}, {"2", "12"}, {"3", "123"}, {"4", "1234"}});
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("2", "3"));
}

TEST_F(ZipTest, EmptyEntryPassesOnlyWithoutAMinimumSize) {
  pack({{"empty", ""}});
  MinSizeBytes = Int32(1);
  scan();
  EXPECT_THAT(fileNames(), IsEmpty());
  MinSizeBytes = Int32(0);
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("empty"));
}

TEST_F(ZipTest, ExtensionsOfTheIncludeDecide) {
  basBuildExtensionList("*.jpg;*.zip", ExtensionList);
  pack({{"a.jpg", "1"}, {"b.txt", "1"}, {"inner.zip", "1"}});
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("a.jpg", "inner.zip"));
}

TEST_F(ZipTest, ArchiveInAnArchiveIsAFile) {
  pack({{"inner.zip", "1"}});
  scan();
  EXPECT_EQ(archiveLibrary.calls.size(), 1U);
  EXPECT_THAT(fileNames(), ElementsAre("inner.zip"));
}

TEST_F(ZipTest, ArchiveThatCannotBeListedIsPassedOverInSilence) {
  EXPECT_EQ(scan(), "");
  EXPECT_THAT(fileNames(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ZipTest, WhatADamagedArchiveListedIsTaken) {
  archiveLibrary.duringCall = [](ArchiveCallbacks& callbacks) {
    callbacks.message({"a.txt", 1, 0, {2004, 5, 6, 7, 8, 0}});
  };
  EXPECT_EQ(scan(), "");
  EXPECT_THAT(fileNames(), ElementsAre("a.txt"));
  EXPECT_EQ(basZipTOC(zip), "9");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ZipTest, EntryWithoutANameAddsTheRootAlone) {
  pack({{"", "1"}});
  scan();
  EXPECT_THAT(folders(), ElementsAre("@1"));
  EXPECT_EQ(FileCount, 0);
}

TEST_F(ZipTest, EntryTooLargeForASizeIsNotListed) {
  pack({{"large", "1"}, {"small", "1"}});
  archiveLibrary.contents[zip][0].claimedSize = 1ULL << 31;
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("small"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// While no scan is running.

class IdleZipTest : public ZipTest, public testing::WithParamInterface<int> {};

TEST_P(IdleZipTest, OnlyTheFirstEntryIsToldAndNothingAdded) {
  RunState = GetParam();
  pack({{"docs/a.txt", "123"}, {"b.txt", "1"}});
  EXPECT_EQ(scan(), "docs/a.txt;3");
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(DirCount, 1);
}

INSTANTIATE_TEST_SUITE_P(NoScan, IdleZipTest,
                         testing::Values(runState::idle, runState::paused, runState::aborted,
                                         runState::finished));

class BusyZipTest : public ZipTest, public testing::WithParamInterface<int> {};

TEST_P(BusyZipTest, EntriesAreAddedWhileAScanRunsOrIsToEnd) {
  RunState = GetParam();
  pack({{"a.txt", "123"}});
  EXPECT_EQ(scan(), "");
  EXPECT_THAT(fileNames(), ElementsAre("a.txt"));
}

INSTANTIATE_TEST_SUITE_P(Scans, BusyZipTest,
                         testing::Values(runState::comparing, runState::pauseRequested,
                                         runState::abortRequested, runState::buildingList));

TEST_F(ZipTest, FirstEntryWithoutASizeIsNotTold) {
  RunState = runState::idle;
  pack({{"docs/", ""}, {"docs/a.txt", "123"}});
  EXPECT_EQ(scan(), "");
  pack({});
  EXPECT_EQ(scan(), "");
}

TEST_F(ZipTest, RowsAddedWithoutAScanAreTemporary) {
  RunState = runState::idle;
  basAddZipEntryToDatabase("docs/a.txt", 1, {}, zipRow_);
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][1], 1);
  EXPECT_TRUE(DirTable[2].temporary);
}

// A file of a directory is looked for in the catalogue then.
TEST_F(ZipTest, EntriesOfOneNameAreBothAddedWithoutAScanToo) {
  RunState = runState::idle;
  basAddZipEntryToDatabase("a.txt", 1, {}, zipRow_);
  basAddZipEntryToDatabase("a.txt", 1, {}, zipRow_);
  EXPECT_THAT(fileNames(), ElementsAre("a.txt", "a.txt"));
}

// A folder of the archive that came as an entry of its own.
TEST_F(ZipTest, NameThatEndsInASlashAddsItsFolderAlone) {
  basAddZipEntryToDatabase("docs/", 0, {}, zipRow_);
  EXPECT_THAT(folders(), ElementsAre("docs@1"));
  EXPECT_EQ(FileCount, 0);
}

TEST_F(ZipTest, TablesGrowWithTheEntries) {
  basRedimFilesArrays(2, false);
  DirTable.redim(2, true);
  pack({{"1/a", "1"}, {"2/b", "1"}, {"3/c", "1"}});
  scan();
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(FileTable.FileName.upperBound(), 5002);
  EXPECT_EQ(DirTable.upperBound(), 2 + 1024);
}

// The listing.

TEST_F(ZipTest, ListingHasRowsFromOneAndItsCodeAsText) {
  pack({{"a/b.txt", "12", {1999, 12, 31, 23, 58, 59}}});
  EXPECT_EQ(basZipTOC(zip), "0");
  EXPECT_EQ(ZipEntryCount, 1);
  EXPECT_EQ(ZipEntryList.upperBound(), 128);
  EXPECT_EQ(ZipEntryList[0].name, "");
  EXPECT_EQ(ZipEntryList[1].name, "a/b.txt");
  EXPECT_EQ(ZipEntryList[1].size, 2);
  EXPECT_EQ(ZipEntryList[1].date, dateTime({1999, 12, 31, 23, 58, 0}));
  EXPECT_EQ(basZipTOC("C:\\a\\gone.zip"), "9");
  EXPECT_EQ(ZipEntryCount, 0);
}

TEST_F(ZipTest, ListGrowsByABlockOnceItIsFull) {
  std::vector<ScriptedEntry> entries;
  for (int i = 1; i <= 129; ++i)
    entries.push_back({std::to_string(i), "1"});
  pack(entries);
  basZipTOC(zip);
  EXPECT_EQ(ZipEntryCount, 129);
  EXPECT_EQ(ZipEntryList.upperBound(), 128 + 1024);
  EXPECT_EQ(ZipEntryList[1].name, "1");
  EXPECT_EQ(ZipEntryList[129].name, "129");
}

TEST_F(ZipTest, NameEndsAtANulAndAfter256Characters) {
  const auto repeated = [](const std::string& character, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
      text += character;
    return text;
  };
  pack({{std::string("a\0b", 3), "1"},
        {repeated("x", 257), "1"},
        {repeated("\xC3\xA9", 256), "1"},
        {"x" + repeated("\xE2\x82\xAC", 300), "1"}});
  basZipTOC(zip);
  EXPECT_EQ(ZipEntryList[1].name, "a");
  EXPECT_EQ(ZipEntryList[2].name, repeated("x", 256));
  EXPECT_EQ(ZipEntryList[3].name, repeated("\xC3\xA9", 256));
  EXPECT_EQ(ZipEntryList[4].name, "x" + repeated("\xE2\x82\xAC", 255));
}

TEST_F(ZipTest, ListingAsksForTheListAlone) {
  basZipTOC(zip);
  const ArchiveOptions& options = archiveLibrary.calls.at(0).options;
  EXPECT_EQ(options.nvflag, 1);
  EXPECT_EQ(options.PromptToOverwrite, 1);
  EXPECT_EQ(options.ndflag, 1);
  EXPECT_EQ(options.lpszZipFN, zip);
  EXPECT_EQ(options.lpszExtractDir, "");
  EXPECT_THAT(archiveLibrary.calls.at(0).included, IsEmpty());
  EXPECT_THAT(
      (std::vector{options.ExtractOnlyNewer, options.SpaceToUnderscore, options.fQuiet,
                   options.ncflag, options.ntflag, options.nfflag, options.nzflag, options.noflag,
                   options.naflag, options.nZIflag, options.C_flag, options.fPrivilege}),
      Each(0));
}

// The extraction.

TEST_F(ZipTest, ExtractionGoesToTheTempDirectoryUnderTheBareName) {
  pack({{"docs/a.txt", "123"}});
  std::string entry = "docs/a.txt";
  EXPECT_EQ(basZipExtract(zip, entry), 0);
  EXPECT_EQ(disk.content(TempDir + "\\a.txt"), "123");
  EXPECT_EQ(ZipEntryList.upperBound(), 1024);
}

TEST_F(ZipTest, ExtractionOverwritesWithoutAQuestion) {
  std::string entry = "docs/a.txt";
  basZipExtract(zip, entry);
  const ArchiveOptions& options = archiveLibrary.calls.at(0).options;
  EXPECT_EQ(options.noflag, 1);
  EXPECT_EQ(options.lpszZipFN, zip);
  EXPECT_EQ(options.lpszExtractDir, TempDir);
  EXPECT_THAT(
      (std::vector{options.ExtractOnlyNewer, options.SpaceToUnderscore, options.PromptToOverwrite,
                   options.fQuiet, options.ncflag, options.ntflag, options.nvflag, options.nfflag,
                   options.nzflag, options.ndflag, options.naflag, options.nZIflag, options.C_flag,
                   options.fPrivilege}),
      Each(0));
}

// The archive library takes brackets for a pattern otherwise.
TEST_F(ZipTest, BracketsOfAnEntryAreEscapedAndStaySoInTheArgument) {
  pack({{"x[1].txt", "1"}});
  std::string entry = "x[1].txt";
  EXPECT_EQ(basZipExtract(zip, entry), 0);
  EXPECT_THAT(archiveLibrary.calls.at(0).included, ElementsAre("x\\[1\\].txt"));
  EXPECT_EQ(entry, "x\\[1\\].txt");
}

// Nobody is asked for a password in the middle of a scan.
TEST_F(ZipTest, EncryptedEntryFailsWithoutAQuestion) {
  pack({{"secret", "1", {}, true}});
  ZipPasswordOff = false;
  std::string entry = "secret";
  EXPECT_EQ(basZipExtract(zip, entry).raw(), archiveBadPassword);
  EXPECT_THAT(ZipMessages, testing::HasSubstr("incorrect password"));
  EXPECT_TRUE(ZipPasswordOff);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ZipTest, MessagesAreThoseOfTheLastCall) {
  pack({{"secret", "1", {}, true}, {"a.txt", "1"}});
  std::string entry = "secret";
  basZipExtract(zip, entry);
  basZipTOC(zip);
  EXPECT_EQ(ZipMessages, "");

  basZipExtract(zip, entry);
  entry = "a.txt";
  EXPECT_EQ(basZipExtract(zip, entry), 0);
  EXPECT_EQ(ZipMessages, "");
}

TEST_F(ZipTest, ExtractionForgetsTheListing) {
  pack({{"a.txt", "1"}});
  basZipTOC(zip);
  std::string entry = "a.txt";
  basZipExtract(zip, entry);
  EXPECT_EQ(ZipEntryCount, 0);
  EXPECT_EQ(ZipEntryList[1].name, "");
}

// What the library may say and ask.

class ZipCallbackTest : public ZipTest {
 protected:
  // Lists an archive whose library makes this call.
  void during(const std::function<void(ArchiveCallbacks&)>& call) {
    archiveLibrary.duringCall = call;
    basZipTOC(zip);
  }

  // What the library gets for a password, or "none".
  std::string passwordGiven() {
    std::string given;
    during([&](ArchiveCallbacks& callbacks) {
      std::array<char, 8> buffer = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
      given = callbacks.password(buffer) == 0 ? buffer.data() : "none";
    });
    return given;
  }
};

TEST_F(ZipCallbackTest, TextsAreCollected) {
  during([](ArchiveCallbacks& callbacks) {
    callbacks.print("one");
    callbacks.print("two\n");
  });
  EXPECT_EQ(ZipMessages, "onetwo\n");
}

// The whole text goes, not only its line feed.
TEST_F(ZipCallbackTest, TextThatBeginsWithALineFeedBecomesALineEnd) {
  during([](ArchiveCallbacks& callbacks) { callbacks.print("\nerror: lost"); });
  EXPECT_EQ(ZipMessages, "\r\n");
}

TEST_F(ZipCallbackTest, LongTextIsCut) {
  during([](ArchiveCallbacks& callbacks) { callbacks.print(std::string(40000, 'x')); });
  EXPECT_EQ(ZipMessages.size(), 32800U);
}

TEST_F(ZipCallbackTest, PasswordIsAskedForUnlessTurnedOff) {
  dialogBoxes.inputs = {"sesame"};
  EXPECT_EQ(passwordGiven(), "sesame");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Please Enter The Password!"));
  ZipPasswordOff = true;
  EXPECT_EQ(passwordGiven(), "none");
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
}

TEST_F(ZipCallbackTest, EmptyPasswordTurnsTheQuestionOff) {
  EXPECT_EQ(passwordGiven(), "none");
  EXPECT_TRUE(ZipPasswordOff);
}

TEST_F(ZipCallbackTest, PasswordThatDoesNotFitIsNone) {
  dialogBoxes.inputs = {"12345678"};
  EXPECT_EQ(passwordGiven(), "none");
}

TEST_F(ZipCallbackTest, OverwritingIsAskedFor) {
  dialogBoxes.answers = {Answer::yes, Answer::no, Answer::cancel};
  std::vector<ReplaceAnswer> answers;
  during([&](ArchiveCallbacks& callbacks) {
    for (int i = 0; i < 3; ++i)
      answers.push_back(callbacks.replace("a.txt"));
  });
  EXPECT_THAT(answers, ElementsAre(ReplaceAnswer::yes, ReplaceAnswer::no, ReplaceAnswer::cancel));
  EXPECT_THAT(dialogBoxes.messages, Each("Overwrite a.txt?"));
  EXPECT_THAT(dialogBoxes.titles, Each("Laipaplez - File Already Exists!"));
  EXPECT_THAT(dialogBoxes.buttons, Each(Buttons::yesNoCancel));
  EXPECT_THAT(dialogBoxes.icons, Each(Icon::exclamation));
  EXPECT_EQ(static_cast<int>(ReplaceAnswer::no), 100);
  EXPECT_EQ(static_cast<int>(ReplaceAnswer::yes), 102);
  EXPECT_EQ(static_cast<int>(ReplaceAnswer::cancel), 104);
}

// The library must not see a failure of ours, and an entry that has a name and a size counts.
TEST_F(ZipCallbackTest, EntryWithAnImpossibleDateIsListedWithoutIt) {
  pack({{"a.txt", "12", {2004, 2, 30, 0, 0, 0}}, {"b.txt", "1"}});
  EXPECT_EQ(basZipTOC(zip), "0");
  EXPECT_EQ(ZipEntryCount, 2);
  EXPECT_EQ(ZipEntryList[1].name, "a.txt");
  EXPECT_EQ(ZipEntryList[1].size, 2);
  EXPECT_EQ(ZipEntryList[1].date, DateTime());
  EXPECT_EQ(ZipEntryList[2].name, "b.txt");
  EXPECT_EQ(scan(), "");
  EXPECT_THAT(fileNames(), ElementsAre("a.txt", "b.txt"));
}

TEST_F(ZipCallbackTest, QuestionThatFailsIsAnsweredAsIfNothingHadBeenEntered) {
  struct BrokenDialogs : ScriptedDialogs {
    Answer messageBox(std::string_view, Buttons, std::string_view, Icon) override {
      fail(FailureNumber::outOfMemory);
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override {
      fail(FailureNumber::outOfMemory);
    }
  } broken;
  platform.dialogs = &broken;
  usePlatform(platform);
  ReplaceAnswer answer = ReplaceAnswer::yes;
  during([&](ArchiveCallbacks& callbacks) { answer = callbacks.replace("a.txt"); });
  EXPECT_EQ(answer, ReplaceAnswer::no);
  EXPECT_EQ(passwordGiven(), "none");
  EXPECT_TRUE(ZipPasswordOff);
}

}  // namespace
}  // namespace quernstoke
