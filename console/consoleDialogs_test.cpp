#include "console/consoleDialogs.h"

#include <gtest/gtest.h>

#include "console/standardError.h"
#include "console/testPipe.h"

namespace quernstoke {
namespace {

class ConsoleDialogsTest : public testing::Test {
 protected:
  TestPipe pipe;
  StandardError err{pipe.descriptor()};
  ConsoleDialogs boxes{err};
};

TEST_F(ConsoleDialogsTest, MessageIsOneLine) {
  boxes.messageBox("one\r\ntwo\nthree\rfour", Buttons::ok, "Title", Icon::none);
  EXPECT_EQ(pipe.text(), "message: one | two | three | four\n");
}

TEST_F(ConsoleDialogsTest, EachLineBreakOfTwoInARowIsShown) {
  boxes.messageBox("one\r\n\r\ntwo", Buttons::ok, "", Icon::none);
  EXPECT_EQ(pipe.text(), "message: one |  | two\n");
}

TEST_F(ConsoleDialogsTest, FirstButtonAnswers) {
  EXPECT_EQ(boxes.messageBox("", Buttons::ok, "", Icon::none), Answer::ok);
  EXPECT_EQ(boxes.messageBox("", Buttons::okCancel, "", Icon::none), Answer::ok);
  EXPECT_EQ(boxes.messageBox("", Buttons::yesNo, "", Icon::none), Answer::yes);
  EXPECT_EQ(boxes.messageBox("", Buttons::yesNoCancel, "", Icon::none), Answer::yes);
}

TEST_F(ConsoleDialogsTest, InputBoxIsCancelled) {
  EXPECT_EQ(boxes.inputBox("Name?", "", "Untitled"), "");
  EXPECT_EQ(pipe.text(), "");
}

TEST_F(ConsoleDialogsTest, RemembersThatAProcedureFailed) {
  boxes.messageBox("Config setting MinimumSize is not numeric, zero used", Buttons::ok, "",
                   Icon::none);
  EXPECT_FALSE(boxes.sawFailure());
  boxes.messageBox("Procedure error in 'basDoScan'.  Reason: Overflow(6).", Buttons::ok, "",
                   Icon::none);
  EXPECT_TRUE(boxes.sawFailure());
}

TEST_F(ConsoleDialogsTest, RemembersThatResultsWereNotSaved) {
  boxes.messageBox("Error saving results to file 'x'. Process aborted", Buttons::ok, "",
                   Icon::none);
  EXPECT_TRUE(boxes.sawFailure());
}

}  // namespace
}  // namespace quernstoke
