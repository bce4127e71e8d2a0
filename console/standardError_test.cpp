#include "console/standardError.h"

#include <gtest/gtest.h>

#include "console/testPipe.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class StandardErrorTest : public EngineTest {
 protected:
  TestPipe pipe;
  StandardError err{pipe.descriptor()};
};

TEST_F(StandardErrorTest, LineIsOneLineWhateverTheText) {
  err.line("a\nb\x1b[2Jc\x7f");
  EXPECT_EQ(pipe.text(), "a?b?[2Jc?\n");
}

TEST_F(StandardErrorTest, BytesBeyondAsciiPass) {
  err.line("\xC3\xA4 \xFF");
  EXPECT_EQ(pipe.text(), "\xC3\xA4 \xFF\n");
}

TEST_F(StandardErrorTest, ShorterProgressHidesTheLongerOne) {
  err.showProgress("12345");
  err.showProgress("12");
  EXPECT_EQ(pipe.text(), "\r12345\r12   ");
}

TEST_F(StandardErrorTest, LineTakesTheProgressAway) {
  err.showProgress("12");
  err.line("a");
  EXPECT_EQ(pipe.text(), "\r12\r  \ra\n");
}

TEST_F(StandardErrorTest, ClearsOnlyWhatIsThere) {
  err.clearProgress();
  err.showProgress("12");
  err.clearProgress();
  err.clearProgress();
  EXPECT_EQ(pipe.text(), "\r12\r  \r");
}

TEST_F(StandardErrorTest, ProgressIsCutToTheWidth) {
  err.showProgress(std::string(200, 'x'));
  EXPECT_EQ(pipe.text(), "\r" + std::string(79, 'x'));  // A pipe is taken to be 80 wide.
}

TEST_F(StandardErrorTest, PipeIsNoTerminal) {
  EXPECT_FALSE(err.isTerminal());
}

}  // namespace
}  // namespace quernstoke
