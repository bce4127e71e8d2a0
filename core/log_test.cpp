#include "core/log.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using LogTest = EngineTest;

TEST_F(LogTest, ALineIsDateTextAndLineEnd) {
  openLog();
  basLogMsg("Hello");
  clock.time.seconds += 60;
  basLogMsg("again");
  EXPECT_EQ(disk.content(logPath),
            "2004-11-02 16:41:08 - Hello\r\n2004-11-02 16:42:08 - again\r\n");
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(LogTest, OpeningCutsAnEarlierLogToNothing) {
  disk.file(logPath, "2004-11-01 09:00:00 - old\r\n");
  openLog();
  EXPECT_EQ(disk.content(logPath), "");
  EXPECT_GT(LogFileNumber, 0);
}

TEST_F(LogTest, WithoutALogTheMessageIsShown) {
  basLogMsg("Hello");
  LogFileNumber = -1;
  basLogMsg("again");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Hello", "again"));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::ok, Buttons::ok));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("", ""));
  EXPECT_FALSE(disk.exists(logPath));
}

TEST_F(LogTest, AfterClosingMessagesAreShown) {
  openLog();
  closeLog();
  basLogMsg("Hello");
  EXPECT_EQ(LogFileNumber, 0);
  EXPECT_EQ(disk.openFiles(), 0);
  EXPECT_EQ(disk.content(logPath), "");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Hello"));
}

TEST_F(LogTest, ClosingWithoutALogDoesNothing) {
  closeLog();
  EXPECT_EQ(LogFileNumber, 0);
  EXPECT_TRUE(disk.calls.empty());
}

TEST_F(LogTest, AFailedWriteIsAProcedureError) {
  openLog();
  disk.freeBytes = 0;
  basLogMsg("Hello");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basLogMsg", "Disk full(61)")));
}

TEST_F(LogTest, ALogThatFailsToCloseIsGivenUp) {
  openLog();
  disk.failOn(DiskAction::close, logPath, FailureNumber::diskFull);
  EXPECT_THROW(closeLog(), Failure);
  EXPECT_EQ(LogFileNumber, 0);
}

TEST_F(LogTest, AFailedOpenLeavesNoLog) {
  disk.failOn(DiskAction::open, logPath, FailureNumber::permissionDenied);
  EXPECT_THROW(openLog(), Failure);
  EXPECT_EQ(LogFileNumber, 0);
}

}  // namespace
}  // namespace quernstoke
