#include "console/summary.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(SummaryTest, TellsWhatWasFoundAndWhatWasPassedOver) {
  Summary summary;
  summary.files = 1234;
  summary.duplicates = 56;
  summary.seconds = 7.25;
  summary.passedOver = {4, 3, 2, 5};
  EXPECT_EQ(summaryLine(summary),
            "1234 files, 56 duplicates, 7.2 seconds; passed over: 2 too large, 5 unreadable, "
            "4 links, 3 special files");
}

TEST(SummaryTest, CountsOneInTheSingular) {
  Summary summary;
  summary.files = summary.duplicates = 1;
  summary.passedOver = {1, 1, 0, 0};
  EXPECT_EQ(summaryLine(summary),
            "1 file, 1 duplicate, 0.0 seconds; passed over: 0 too large, 0 unreadable, 1 link, "
            "1 special file");
}

TEST(SummaryTest, BeginsWithAnOutcomeOtherThanTheUsualOne) {
  Summary summary;
  summary.outcome = Summary::Outcome::aborted;
  EXPECT_TRUE(summaryLine(summary).starts_with("Aborted: 0 files"));
  summary.outcome = Summary::Outcome::paused;
  EXPECT_TRUE(summaryLine(summary).starts_with("Paused, --continue takes the scan up: "));
  summary.outcome = Summary::Outcome::failed;
  EXPECT_TRUE(summaryLine(summary).starts_with("Failed, the results are incomplete: "));
}

}  // namespace
}  // namespace quernstoke
