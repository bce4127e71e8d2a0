// Runs of the built program on trees of real files.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <sys/stat.h>

#include "console/runScan.h"
#include "platform/linux/packArchive.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using Set = std::set<std::string>;

// What the program wrote, set by set, as long as no name holds a line break.
std::set<Set> setsOf(const std::string& out) {
  std::set<Set> sets;
  Set current;
  for (std::size_t at = 0; at < out.size();) {
    const std::size_t end = std::min(out.find('\n', at), out.size());
    if (end == at)
      sets.insert(std::exchange(current, {}));
    else
      current.insert(out.substr(at, end - at));
    at = end + 1;
  }
  if (!current.empty()) sets.insert(current);
  return sets;
}

// Files to scan in "in", the person's directory "ann", homes below "tmp".
class ScanProgramTest : public testing::Test {
 protected:
  ScanProgramTest() {
    for (const char* directory : {"in", "tmp", "home", "ann/Documents"})
      tree.directory(directory);
    program.environment = {{"TMPDIR", tree.path("tmp")}, {"HOME", tree.path("ann")},
                           {"XDG_CONFIG_HOME", ""},      {"QUERNSTOKE_HOME", ""},
                           {"QUERNSTOKE_DRIVES", ""},    {"POSIXLY_CORRECT", ""}};
    // The first of the sizes goes by rules of its own.
    tree.file("in/smallest", "x");
  }

  RunResult run(std::vector<std::string> arguments) {
    program.arguments = std::move(arguments);
    return program.run();
  }
  // A scan of "in".
  RunResult scan(std::vector<std::string> arguments = {}) {
    arguments.push_back(tree.path("in"));
    return run(std::move(arguments));
  }
  std::string in(const std::string& name) const { return tree.path("in/" + name); }
  // Files in "in".
  void equalFiles(const std::vector<std::string>& names,
                  const std::string& content = "the same") const {
    for (const std::string& name : names)
      tree.file("in/" + name, content);
  }
  Set inAll(const std::vector<std::string>& names) const {
    Set all;
    for (const std::string& name : names)
      all.insert(in(name));
    return all;
  }

  std::set<Set> oneSet(const std::vector<std::string>& names) const { return {inAll(names)}; }

  void expectNoScratchHome() const { EXPECT_TRUE(std::filesystem::is_empty(tree.path("tmp"))); }
  void expectWrong(const std::vector<std::string>& arguments) {
    const RunResult result = run(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("quernstoke-scan: "));
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
  }

  TemporaryTree tree;
  RunScan program;
};

TEST_F(ScanProgramTest, FindsSetsOfEqualFiles) {
  equalFiles({"a/1", "b/2"}, "content one");
  equalFiles({"c/3", "d/4", "e/5"}, "content two");
  const RunResult result = scan();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(setsOf(result.out),
            (std::set<Set>{inAll({"a/1", "b/2"}), inAll({"c/3", "d/4", "e/5"})}));
}

TEST_F(ScanProgramTest, WritesNothingWhenNothingIsEqual) {
  tree.file("in/a", "content one");
  const RunResult result = scan();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
}

TEST_F(ScanProgramTest, BlankLineDividesTwoSets) {
  equalFiles({"a", "b"}, "content one");
  equalFiles({"c", "d"}, "content of two");
  const std::string out = scan().out;
  EXPECT_EQ(std::ranges::count(out, '\n'), 5);
  EXPECT_EQ(out.find("\n\n"), out.rfind("\n\n"));
  EXPECT_FALSE(out.ends_with("\n\n"));
}

// The first run of the sorted files counts one short.
TEST_F(ScanProgramTest, TwoFilesOfTheSmallestSizeAreNotCompared) {
  tree.file("in/second", "x");
  EXPECT_EQ(scan().out, "");
  tree.file("in/third", "x");
  EXPECT_EQ(setsOf(scan().out), oneSet({"smallest", "second", "third"}));
}

TEST_F(ScanProgramTest, AnyNameComesOutByteForByte) {
  const std::vector<std::string> names = {"new\nline",   "quo\"te",      "back\\slash",
                                          "bad\xFF\xC3", "C:",           "star*?",
                                          " ",           "\xEF\x80\x8A", "tab\t."};
  for (const std::string& name : names)
    tree.file("in/" + name + "/" + name, "the same");
  const RunResult result = scan();
  EXPECT_EQ(result.status, 0);
  std::size_t length = 0;
  for (const std::string& name : names) {
    const std::string line = in(name + "/" + name) + "\n";
    EXPECT_THAT(result.out, HasSubstr(line));
    length += line.size();
  }
  EXPECT_EQ(result.out.size(), length);
}

TEST_F(ScanProgramTest, PathsAreAbsoluteWhateverIsGiven) {
  equalFiles({"a", "b"});
  program.workingDirectory = tree.path("in");
  EXPECT_EQ(setsOf(run({"."}).out), oneSet({"a", "b"}));
}

TEST_F(ScanProgramTest, DrivesOfProfilesDoNotMatterToDirectories) {
  equalFiles({"a/1", "2"});
  program.environment.emplace_back("QUERNSTOKE_DRIVES", "D:=" + in("a"));
  EXPECT_EQ(setsOf(scan().out), oneSet({"a/1", "2"}));
  EXPECT_EQ(scan({"--exclude", in("a")}).out, "");
}

TEST_F(ScanProgramTest, MatchesBySizeNameOrContent) {
  tree.file("in/a/same", "12345");
  tree.file("in/b/same", "6789");
  tree.file("in/c/other", "54321");
  tree.file("in/d/another", "6789");
  tree.file("in/a first name", "1234567");
  EXPECT_EQ(setsOf(scan({"--match", "S"}).out),
            (std::set<Set>{inAll({"a/same", "c/other"}), inAll({"b/same", "d/another"})}));
  EXPECT_EQ(setsOf(scan({"--match", "n"}).out), oneSet({"a/same", "b/same"}));
  EXPECT_EQ(setsOf(scan({"--match", "C"}).out), oneSet({"b/same", "d/another"}));
}

TEST_F(ScanProgramTest, PercentLetsTheEndDiffer) {
  const std::string beginning(70'000, 'x');
  tree.file("in/a", beginning + std::string(30'000, 'y'));
  tree.file("in/b", beginning + std::string(30'000, 'z'));
  EXPECT_EQ(scan().out, "");
  EXPECT_EQ(setsOf(scan({"--percent", "50"}).out), oneSet({"a", "b"}));
}

TEST_F(ScanProgramTest, SizesLimitWhatIsLookedAt) {
  for (const char* name : {"a", "b"}) {
    tree.file(std::string("in/small/") + name, "1234");
    tree.file(std::string("in/middle/") + name, std::string(1024, 'x'));
    tree.file(std::string("in/large/") + name, std::string(2049, 'x'));
  }
  tree.file("in/middle/decoy", std::string(1023, 'x'));
  EXPECT_EQ(setsOf(scan({"--min-size", "1023B", "--max-size", "2KB"}).out),
            oneSet({"middle/a", "middle/b"}));
  EXPECT_EQ(setsOf(scan({"--min-size", "0B", "--max-size", "4B"}).out),
            oneSet({"small/a", "small/b"}));
}

TEST_F(ScanProgramTest, TypesLimitWhatIsLookedAt) {
  equalFiles({"1.jpg", "2.JPG", "3.png", "4.7", "5.7", "6.txt", "7"});
  tree.file("in/smallest.jpg", "x");
  tree.file("in/smallest.7", "x");
  EXPECT_EQ(setsOf(scan({"--types", "*.jpg;png"}).out), oneSet({"1.jpg", "2.JPG", "3.png"}));
  EXPECT_EQ(setsOf(scan({"--types", "7"}).out), oneSet({"4.7", "5.7"}));
}

TEST_F(ScanProgramTest, ExcludeCoversADirectoryAndAllBelowItAndNoSibling) {
  equalFiles({"foo/1", "foo/sub/2", "foobar/3", "foobar/4", "bar/foo/5"});
  EXPECT_EQ(setsOf(scan({"--exclude", in("foo")}).out),
            oneSet({"foobar/3", "foobar/4", "bar/foo/5"}));
  EXPECT_EQ(setsOf(scan({"--exclude", in("foo"), "--exclude", in("bar/foo/")}).out),
            oneSet({"foobar/3", "foobar/4"}));
}

TEST_F(ScanProgramTest, HiddenFilesAreLookedAtOnRequest) {
  equalFiles({"1", "2", ".3", ".d/4"});
  EXPECT_EQ(setsOf(scan().out), oneSet({"1", "2"}));
  EXPECT_EQ(setsOf(scan({"--hidden", "--system"}).out), oneSet({"1", "2", ".3", ".d/4"}));
}

TEST_F(ScanProgramTest, DirectoryInAnotherOneIsScannedOnce) {
  tree.file("in/a/file", "content");
  const RunResult result = scan({in("a")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, StartsWith("quernstoke-scan: '" + in("a") + "' is left out: it is in '" +
                                     tree.path("in") + "' already\n"));
}

TEST_F(ScanProgramTest, LinksAreNotFollowedButFromTheCommandLine) {
  equalFiles({"a", "b"});
  tree.link("in/c", "a");
  tree.link("in/loop", ".");
  tree.link("link", "in");
  EXPECT_EQ(setsOf(run({tree.path("link")}).out), oneSet({"a", "b"}));
}

TEST_F(ScanProgramTest, SummaryIsTheLastLineAndCountsWhatWasPassedOver) {
  equalFiles({"a", "b"});
  tree.link("in/c", "a");
  tree.link("in/d", "nowhere");
  tree.fifo("in/e");
  tree.file("in/large");
  std::filesystem::resize_file(in("large"), std::uintmax_t{1} << 31);
  const std::string err = scan().err;
  EXPECT_THAT(err, ContainsRegex("^4 files, 1 duplicate, [0-9]+\\.[0-9] seconds; passed over: "
                                 "1 too large, 0 unreadable, 2 links, 1 special file\n$"));
}

TEST_F(ScanProgramTest, UnreadableFilesAndDirectoriesAreCounted) {
  equalFiles({"a", "b", "locked", "closed/c"});
  tree.setMode("", 0755);
  tree.setMode("tmp", 0777);
  tree.setMode("in/locked", 0);
  tree.setMode("in/closed", 0);
  program.withoutPrivileges = true;
  const RunResult result = scan();
  tree.setMode("in/closed", 0755);
  if (result.status == 127) GTEST_SKIP() << "the program lies where only root may run it";
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(setsOf(result.out), oneSet({"a", "b"}));
  EXPECT_THAT(result.err, HasSubstr(" 2 unreadable,"));
}

// Each path below a directory with its content and its times of change.
std::map<std::string, std::string> stateOf(const std::string& directory) {
  std::map<std::string, std::string> state;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
    std::ostringstream facts;
    facts << entry.last_write_time().time_since_epoch().count() << ' '
          << static_cast<int>(entry.status().permissions()) << ' ';
    if (entry.is_regular_file()) facts << std::ifstream(entry.path()).rdbuf();
    state[entry.path()] = facts.str();
  }
  return state;
}

TEST_F(ScanProgramTest, LeavesTheScannedTreeAndTheTemporaryDirectoryAsTheyWere) {
  equalFiles({"a", "b", "below/c"});
  const auto before = stateOf(tree.path("in"));
  EXPECT_EQ(scan().status, 0);
  EXPECT_EQ(stateOf(tree.path("in")), before);
  expectNoScratchHome();
}

TEST_F(ScanProgramTest, ProfileIsNoPath) {
  tree.file("home/mine.profile", "kept");
  const RunResult result = run({"--home", tree.path("home"), "--profile", "../mine"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("no profile can be called '../mine'"));
  EXPECT_EQ(tree.content("home/mine.profile"), "kept");
}

TEST_F(ScanProgramTest, NeverScansItsOwnHome) {
  tree.file("tmp/a", "the same");
  EXPECT_THAT(run({"--hidden", tree.path("tmp")}).err, StartsWith("1 file, 0 duplicates"));
}

TEST_F(ScanProgramTest, ScratchHomeLiesWhereItIsToldTo) {
  program.environment.emplace_back("TMPDIR", tree.path("nix"));
  EXPECT_EQ(scan().status, 3);
  EXPECT_EQ(scan({"--home", tree.path("home")}).status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(tree.path("home")));
}

TEST_F(ScanProgramTest, QuietScanSaysNothing) {
  equalFiles({"a/1", "2"});
  const RunResult result = scan({"--quiet", in("a")});
  EXPECT_EQ(setsOf(result.out), oneSet({"a/1", "2"}));
  EXPECT_EQ(result.err, "");
}

TEST_F(ScanProgramTest, ProgressIsDrawnOnATerminalOnly) {
  EXPECT_THAT(scan().err, Not(HasSubstr("Initializing")));
  program.errIsTerminal = true;
  const std::string err = scan().err;
  EXPECT_THAT(err, StartsWith("\rInitializing...  0 files, 0 directories\r"));
  // The line is gone before the summary.
  EXPECT_THAT(err, ContainsRegex("\r +\r1 file, "));
  EXPECT_EQ(scan({"--quiet"}).err, "");
}

TEST_F(ScanProgramTest, OutputGoesToAFile) {
  equalFiles({"a", "b"});
  tree.file("out", "older");
  const RunResult result = scan({"--output", tree.path("out")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(setsOf(tree.content("out")), oneSet({"a", "b"}));
}

TEST_F(ScanProgramTest, TablesGoWhereTextGoes) {
  equalFiles({"a", "b"});
  const std::string csv = scan({"--format", "csv"}).out;
  EXPECT_THAT(csv, StartsWith("Marker,Block#,Name,Directory,Date,Size\r\n\"\",1,\""));
  EXPECT_THAT(csv, HasSubstr(",\"b\",\"" + tree.path("in") + "\","));
  EXPECT_EQ(std::ranges::count(csv, '\n'), 3);
  const RunResult page = scan({"--format", "html", "--output", tree.path("out")});
  EXPECT_EQ(page.status, 0);
  EXPECT_EQ(page.out, "");
  EXPECT_THAT(tree.content("out"), StartsWith("<!DOCTYPE html>\r\n"));
  EXPECT_THAT(tree.content("out"), EndsWith("</html>\r\n"));
  EXPECT_THAT(tree.content("out"),
              HasSubstr("\">b</td><td class=\"colour1\">" + tree.path("in") + "</td>"));
}

TEST_F(ScanProgramTest, PageIsMadeFromTheTemplateOfTheHome) {
  equalFiles({"a", "b"});
  tree.file("home/results_template.html", "mine\n<File_data_inserted_here>\n");
  program.environment.emplace_back("QUERNSTOKE_HOME", tree.path("home"));
  EXPECT_THAT(scan({"--format", "html"}).out, StartsWith("mine\r\n<tr><td "));
}

TEST_F(ScanProgramTest, PageMayBeMadeFromTheTemplateBesideTheProgram) {
  equalFiles({"a", "b"});
  tree.file("installed/results_template.html", "theirs\n<File_data_inserted_here>\n");
  program.executable = tree.path("installed/quernstoke-scan");
  std::filesystem::copy_file(QUERNSTOKE_SCAN_PATH, program.executable);
  EXPECT_THAT(scan({"--format", "html"}).out, StartsWith("theirs\r\n<tr><td "));
}

TEST_F(ScanProgramTest, TemplateThatCannotBeUsedEndsTheRunBeforeTheScan) {
  tree.file("home/results_template.html", "mine\n");
  const RunResult result = scan({"--home", tree.path("home"), "--format", "html"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "quernstoke-scan: " + tree.path("home/results_template.html") +
                            ": has no <File_data_inserted_here>\n");
  EXPECT_EQ(scan({"--home", tree.path("home"), "--format", "csv"}).status, 0);
}

// Else the report would call a file equal that it has just replaced.
TEST_F(ScanProgramTest, OutputFileIsInNoSet) {
  equalFiles({"a", "b", "out"});
  const RunResult result = scan({"--output", in("out")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(setsOf(tree.content("in/out")), oneSet({"a", "b"}));
  EXPECT_THAT(result.err,
              StartsWith("quernstoke-scan: '" + in("out") + "' is left out: it is replaced\n"));
  EXPECT_THAT(result.err, HasSubstr("4 files, 1 duplicate, "));
  tree.file("in/out", "the same");
  std::filesystem::remove(in("b"));
  EXPECT_EQ(scan({"--quiet", "--output", in("out")}).err, "");
  EXPECT_EQ(tree.content("in/out"), "");
}

TEST_F(ScanProgramTest, OutputFileIsNotTouchedByARunThatDoesNotBegin) {
  const std::string out = tree.path("out");
  EXPECT_EQ(scan({"--output", out, "--match", "X"}).status, 2);
  EXPECT_EQ(scan({"--output", out, tree.path("nix")}).status, 3);
  EXPECT_FALSE(tree.exists("out"));
}

TEST_F(ScanProgramTest, OutputThatCannotBeWrittenEndsTheRunBeforeTheScan) {
  const RunResult result = scan({"--output", tree.path("nix/out")});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "quernstoke-scan: " + tree.path("nix/out") + ": No such file or directory\n");
}

class OutputFailureTest : public ScanProgramTest {
 protected:
  OutputFailureTest() {
    tree.file("in/a", "the same");
    tree.file("in/b", "the same");
  }

  void expectFailure(const RunResult& result, const std::string& line) const {
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "quernstoke-scan: " + line + "\n");
    expectNoScratchHome();
  }
};

TEST_F(OutputFailureTest, FullDiskIsTold) {
  for (const char* format : {"text", "csv", "html"})
    expectFailure(scan({"--output", "/dev/full", "--format", format}),
                  "/dev/full: No space left on device");
  program.outPath = "/dev/full";
  expectFailure(scan(), "standard output: No space left on device");
  EXPECT_EQ(run({"--help"}).status, 1);
}

TEST_F(OutputFailureTest, FileThatMayNotBecomeSoLongIsTold) {
  program.executable = "/bin/sh";
  const RunResult result = run({"-c", "ulimit -f 0; exec \"$0\" \"$@\"", QUERNSTOKE_SCAN_PATH,
                                "--output", tree.path("out"), tree.path("in")});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("quernstoke-scan: "));
}

TEST_F(OutputFailureTest, ClosedStandardOutputIsTold) {
  program.closesOut = true;
  expectFailure(scan(), "standard output: Bad file descriptor");
}

TEST_F(OutputFailureTest, ReaderThatHasGoneIsTold) {
  program.breaksOut = true;
  expectFailure(scan(), "standard output: Broken pipe");
}

TEST_F(ScanProgramTest, WrongArgumentsAreToldInOneLine) {
  const std::string directory = tree.path("in");
  expectWrong({});
  expectWrong({"--bogus", directory});
  expectWrong({"--new\nline", directory});
  expectWrong({"--match", "", directory});
  expectWrong({"--match", "CX", directory});
  expectWrong({"--percent", "49", directory});
  expectWrong({"--min-size", "1.5KB", directory});
  expectWrong({"--max-size", "858994GB", directory});
  expectWrong({"--min-size", "2B", "--max-size", "1B", directory});
  expectWrong({"--types", "", directory});
  expectWrong({"--format", "xml", directory});
  expectWrong({"--continue", directory});
  expectWrong({"--profile", "MyDocs", directory});
  expectWrong({"--profile", "MyDocs", "--zip"});
  expectNoScratchHome();
}

TEST_F(ScanProgramTest, DirectoryThatIsNotThereIsNamed) {
  const RunResult result = scan({tree.path("nix")});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err,
            "quernstoke-scan: directory '" + tree.path("nix") + "': No such file or directory\n");
  EXPECT_EQ(scan({in("smallest")}).status, 3);
  EXPECT_EQ(scan({"--exclude", tree.path("nix")}).status, 3);
  EXPECT_EQ(scan({"--home", tree.path("nix")}).status, 3);
  expectNoScratchHome();
}

TEST_F(ScanProgramTest, HelpAndVersionGoToStandardOutput) {
  const RunResult help = run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, StartsWith("usage: quernstoke-scan [options] DIRECTORY...\n"));
  EXPECT_EQ(help.err, "");
  const RunResult version = run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_THAT(version.out, ContainsRegex("^quernstoke-scan [0-9]+\\.[0-9]+\\.[0-9]+\n$"));
}

TEST_F(ScanProgramTest, HelpTellsEveryOption) {
  const std::string help = run({"--help"}).out;
  for (const char* option :
       {"--home", "--match", "--percent", "--min-size", "--max-size", "--types", "--exclude",
        "--zip", "--hidden", "--system", "--format", "--output", "--quiet", "--version", "--help",
        "--profile", "--continue"})
    EXPECT_THAT(help, HasSubstr(option));
}

TEST_F(ScanProgramTest, SignalAbortsAScanOfDirectories) {
  equalFiles({"a", "b"});
  tree.file("out", "older");
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    program.signals = {number};
    const RunResult result = scan({"--output", tree.path("out")});
    EXPECT_EQ(result.status, 4);
    EXPECT_THAT(result.err, StartsWith("Aborted: "));
    EXPECT_EQ(tree.content("out"), "older");
    expectNoScratchHome();
  }
}

TEST_F(ScanProgramTest, SignalThatTheStarterIgnoresStaysIgnored) {
  program.ignored = SIGINT;
  program.signals = {SIGINT};
  EXPECT_EQ(scan().status, 0);
}

// The first run of the program makes the profile "MyDocs", which looks at the person's documents
// of 32 bytes and more.
class ScanProfileTest : public ScanProgramTest {
 protected:
  ScanProfileTest() { document("smallest", 'x', 32); }

  void document(const std::string& name, char content, int size) const {
    tree.file("ann/Documents/" + name, std::string(static_cast<std::size_t>(size), content));
  }
  Set documents(const std::vector<std::string>& names) const {
    Set all;
    for (const std::string& name : names)
      all.insert(tree.path("ann/Documents/" + name));
    return all;
  }
  RunResult runProfile(std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.end(), {"--home", tree.path("home"), "--profile", "MyDocs"});
    return run(std::move(arguments));
  }
  std::string homeFile(const std::string& name) const { return tree.content("home/" + name); }

  // Files of three sets. A pause that waits for the program comes behind the first set.
  std::set<Set> makeThreeSets() const {
    for (const char* name : {"a1", "a2", "a3"})
      document(name, 'a', 40);
    for (const char* name : {"b1", "b2"})
      document(name, 'b', 50);
    for (const char* name : {"c1", "c2"})
      document(name, 'c', 60);
    return {documents({"a1", "a2", "a3"}), documents({"b1", "b2"}), documents({"c1", "c2"})};
  }
};

TEST_F(ScanProfileTest, LeavesLogProfileAndSnapshots) {
  document("a", 'a', 40);
  document("b", 'a', 40);
  document("short", 'y', 31);
  const RunResult result = runProfile();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(setsOf(result.out), std::set<Set>{documents({"a", "b"})});
  EXPECT_THAT(result.err, StartsWith("4 files, 1 duplicate, "));
  EXPECT_TRUE(tree.exists("home/quernstoke-scan.log"));
  EXPECT_THAT(homeFile("Profiles/MyDocs.files"), HasSubstr("\"a\""));
  EXPECT_THAT(homeFile("Profiles/MyDocs.dir"), HasSubstr("Documents"));
  EXPECT_THAT(homeFile("Profiles/MyDocs.profile"), HasSubstr("RunMode"));
  EXPECT_TRUE(tree.exists("home/Profiles/global.settings"));
}

TEST_F(ScanProfileTest, TableHasTheMarkersOfTheSettings) {
  document("a", 'a', 40);
  document("b", 'a', 40);
  runProfile();
  std::string settings = homeFile("Profiles/global.settings");
  const std::string indicator = "ResultsBlockIndicator\t1\t";
  settings.insert(settings.find(indicator) + indicator.size(), "first");
  tree.file("home/Profiles/global.settings", settings);
  EXPECT_THAT(runProfile({"--format", "csv"}).out, HasSubstr("\r\n\"first\",1,"));
}

TEST_F(ScanProfileTest, HomeIsWhatTheVariableNames) {
  program.environment.emplace_back("QUERNSTOKE_HOME", tree.path("home"));
  EXPECT_EQ(run({"--profile", "MyDocs"}).status, 0);
  EXPECT_TRUE(tree.exists("home/Profiles/MyDocs.profile"));
}

TEST_F(ScanProfileTest, ProfileThatIsNotThereIsNamed) {
  const RunResult result = run({"--home", tree.path("home"), "--profile", "Nix"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.err, "quernstoke-scan: profile 'Nix' can't be loaded\n");
}

TEST_F(ScanProfileTest, HomeThatIsNotThereIsNotMade) {
  const RunResult result = run({"--home", tree.path("nix"), "--profile", "MyDocs"});
  EXPECT_EQ(result.status, 3);
  EXPECT_FALSE(tree.exists("nix"));
}

TEST_F(ScanProfileTest, HomeThatCannotBeUsedIsAFailure) {
  tree.directory("home/quernstoke-scan.log");
  const RunResult result = runProfile();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, StartsWith("message: Procedure error in 'Main'.  Reason: "));
  EXPECT_THAT(result.err, EndsWith("can't use '" + tree.path("home") + "' as its home\n"));
}

TEST_F(ScanProfileTest, MessageBoxIsALineThatQuietDoesNotHide) {
  runProfile();
  std::string profile = homeFile("Profiles/MyDocs.profile");
  profile.replace(profile.find("ScanSystemFiles"), 15, "ScanSistemFiles");
  tree.file("home/Profiles/MyDocs.profile", profile);
  const RunResult result = runProfile({"--quiet"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "message: Invalid config setting ScanSistemFiles data ignored\n");
}

TEST_F(ScanProfileTest, ResultsThatAreNotSavedAreAFailure) {
  document("a", 'a', 40);
  document("b", 'a', 40);
  runProfile();
  std::filesystem::remove(tree.path("home/Profiles/MyDocs.dir"));
  tree.directory("home/Profiles/MyDocs.dir");
  const RunResult result = runProfile();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("message: Error saving results to file "));
  EXPECT_THAT(result.err, HasSubstr("\nFailed, the results are incomplete: "));
  EXPECT_EQ(setsOf(result.out), std::set<Set>{documents({"a", "b"})});
}

TEST_F(ScanProfileTest, SignalPausesAndContinueTakesTheScanUp) {
  const std::set<Set> all = makeThreeSets();
  program.signals = {SIGTERM};
  const RunResult paused = runProfile();
  EXPECT_EQ(paused.status, 4);
  EXPECT_EQ(paused.out, "");
  EXPECT_THAT(paused.err, HasSubstr("will pause once the list of files is built"));
  EXPECT_THAT(paused.err, HasSubstr("\nPaused, --continue takes the scan up: 8 files, 2 "));

  program.signals.clear();
  const RunResult continued = runProfile({"--continue"});
  EXPECT_EQ(continued.status, 0);
  EXPECT_EQ(setsOf(continued.out), all);
  EXPECT_THAT(continued.err, HasSubstr(", 4 duplicates, "));
}

TEST_F(ScanProfileTest, PausedProfileCanAlsoBeRunAnew) {
  const std::set<Set> all = makeThreeSets();
  program.signals = {SIGINT};
  EXPECT_EQ(runProfile().status, 4);
  program.signals.clear();
  EXPECT_EQ(setsOf(runProfile().out), all);
}

TEST_F(ScanProfileTest, SecondSignalAborts) {
  makeThreeSets();
  program.signals = {SIGINT, SIGTERM};
  const RunResult result = runProfile();
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.err, HasSubstr("Aborted: "));
  program.signals.clear();
  EXPECT_EQ(runProfile({"--continue"}).status, 2);
}

TEST_F(ScanProfileTest, OnlyAPausedProfileIsContinued) {
  const RunResult neverRun = runProfile({"--continue"});
  EXPECT_EQ(neverRun.status, 2);
  EXPECT_EQ(neverRun.err,
            "quernstoke-scan: profile 'MyDocs' is not paused, so it can't be continued\n");
  EXPECT_EQ(runProfile().status, 0);
  EXPECT_EQ(runProfile({"--continue"}).status, 2);
}

TEST_F(ScanProfileTest, DrivesShowOtherDirectories) {
  document("a", 'a', 40);
  document("b", 'a', 40);
  program.environment.emplace_back("QUERNSTOKE_DRIVES", "D:=" + tree.path("ann"));
  EXPECT_EQ(setsOf(runProfile().out), std::set<Set>{documents({"a", "b"})});
  EXPECT_THAT(homeFile("Profiles/MyDocs.dir"), HasSubstr("D:\\Documents"));
}

// Characters that the program's own paths can't hold come out as the archive has them.
TEST_F(ScanProgramTest, EntriesOfArchivesShowBehindTheArchive) {
  tree.file("in/c:d", "12345");
  packArchive(tree.path("in/b.zip"), {{"docs/c:d", "12345"}, {"c:d", "54321"}});
  EXPECT_EQ(setsOf(scan({"--zip", "--match", "NS"}).out),
            oneSet({"c:d", "b.zip >> docs/c:d", "b.zip >> c:d"}));
}

}  // namespace
}  // namespace quernstoke
