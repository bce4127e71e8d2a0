#include "console/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/exitStatus.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Options parse(std::vector<std::string> words) {
  words.insert(words.begin(), "quernstoke-scan");
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words)
    pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return parseOptions(static_cast<int>(words.size()), pointers.data());
}

// What wrong arguments are told; empty for right ones.
std::string refusal(const std::vector<std::string>& words) {
  try {
    parse(words);
  } catch (const ScanError& error) {
    EXPECT_EQ(error.status, ExitStatus::wrongArguments);
    return error.what();
  }
  return {};
}

TEST(OptionsTest, ScanOfDirectoriesHasTheDefaultsOfANewProfileButOneByteAtLeast) {
  const Options options = parse({"a", "b"});
  EXPECT_EQ(options.task, Options::Task::scanDirectories);
  EXPECT_THAT(options.scan.directories, ElementsAre("a", "b"));
  EXPECT_EQ(options.scan.match, "C");
  EXPECT_EQ(options.scan.percent, 100);
  EXPECT_EQ(options.scan.minimum.number, 1);
  EXPECT_EQ(options.scan.minimum.measure, "B");
  EXPECT_EQ(options.scan.maximum.number, 2);
  EXPECT_EQ(options.scan.maximum.measure, "GB");
  EXPECT_EQ(options.scan.types, "*.*");
  EXPECT_FALSE(options.scan.zip || options.scan.hidden || options.scan.system || options.quiet);
}

TEST(OptionsTest, TakesEveryOptionOfAScan) {
  const Options options =
      parse({"--match=ns", "--percent", "60",       "--min-size", "2KB",     "--max-size",
             "3MB",        "--types",   "jpg",      "--exclude",  "x",       "--exclude",
             "y",          "--zip",     "--hidden", "--system",   "--home",  "h",
             "--output",   "o",         "--format", "text",       "--quiet", "a"});
  EXPECT_EQ(options.scan.match, "NS");
  EXPECT_EQ(options.scan.percent, 60);
  EXPECT_EQ(options.scan.minimum.number, 2);
  EXPECT_EQ(options.scan.maximum.measure, "MB");
  EXPECT_EQ(options.scan.types, "*.jpg");
  EXPECT_THAT(options.scan.excludes, ElementsAre("x", "y"));
  EXPECT_TRUE(options.scan.zip && options.scan.hidden && options.scan.system && options.quiet);
  EXPECT_EQ(options.home, "h");
  EXPECT_EQ(options.output, "o");
}

TEST(OptionsTest, TakesOptionsBehindDirectories) {
  EXPECT_THAT(parse({"a", "--hidden", "b"}).scan.directories, ElementsAre("a", "b"));
}

TEST(OptionsTest, TakesDirectoriesThatLookLikeOptionsBehindTwoDashes) {
  EXPECT_THAT(parse({"--", "--hidden"}).scan.directories, ElementsAre("--hidden"));
}

TEST(OptionsTest, ProfileGoesWithTheCommonOptions) {
  const Options options = parse({"--profile", "My Docs", "--continue", "--home", "h", "--output",
                                 "o", "--format", "text", "--quiet"});
  EXPECT_EQ(options.task, Options::Task::runProfile);
  EXPECT_EQ(options.profile, "My Docs");
  EXPECT_TRUE(options.continues);
}

TEST(OptionsTest, ProfileGoesWithNoOptionOfAScan) {
  for (const char* option : {"--match=C", "--percent=60", "--min-size=1B", "--max-size=1B",
                             "--types=jpg", "--exclude=x", "--zip", "--hidden", "--system"})
    EXPECT_THAT(refusal({"--profile", "p", option}), HasSubstr("can't be combined")) << option;
  EXPECT_THAT(refusal({"--profile", "p", "a"}), HasSubstr("can't be combined"));
}

TEST(OptionsTest, ContinueNeedsAProfile) {
  EXPECT_EQ(refusal({"--continue", "a"}), "--continue needs --profile");
}

TEST(OptionsTest, SomethingHasToBeNamed) {
  EXPECT_THAT(refusal({}), HasSubstr("name a directory"));
  EXPECT_THAT(refusal({"--quiet"}), HasSubstr("name a directory"));
  EXPECT_THAT(refusal({"--profile", ""}), HasSubstr("--profile"));
}

TEST(OptionsTest, TellsWhichOptionIsWrong) {
  EXPECT_THAT(refusal({"--bogus", "a"}), HasSubstr("unknown option --bogus"));
  EXPECT_THAT(refusal({"-x", "a"}), HasSubstr("unknown option -x"));

  EXPECT_THAT(refusal({"--min-size"}), "--min-size needs a value");
  EXPECT_THAT(refusal({"--quiet=yes", "a"}), "--quiet takes no value");
}

TEST(OptionsTest, TakesTheFormats) {
  EXPECT_EQ(parse({"a"}).format, ReportFormat::text);
  EXPECT_EQ(parse({"--format", "text", "a"}).format, ReportFormat::text);
  EXPECT_EQ(parse({"--format", "csv", "a"}).format, ReportFormat::csv);
  EXPECT_EQ(parse({"--format", "html", "a"}).format, ReportFormat::html);
  EXPECT_THAT(refusal({"--format", "xml", "a"}), HasSubstr("text, csv or html"));
}

TEST(OptionsTest, MinimumIsNotAboveTheMaximum) {
  EXPECT_THAT(refusal({"--min-size=2KB", "--max-size=2047B", "a"}), HasSubstr("above"));
  EXPECT_EQ(refusal({"--min-size=2KB", "--max-size=2048B", "a"}), "");
}

TEST(OptionsTest, NamesAsManyDirectoriesAsAProfileHolds) {
  std::vector<std::string> words(126, "a");
  words.insert(words.end(), {"--exclude", "b"});
  EXPECT_EQ(refusal(words), "");
  words.emplace_back("c");
  EXPECT_THAT(refusal(words), HasSubstr("at most 127"));
}

TEST(OptionsTest, HelpAndVersionAskForNothingElse) {
  EXPECT_EQ(parse({"--help"}).task, Options::Task::showHelp);
  EXPECT_EQ(parse({"--version", "--continue"}).task, Options::Task::showVersion);
}

}  // namespace
}  // namespace quernstoke
