#include "core/procedure.h"

#include <string>

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using ProcedureTest = EngineTest;

TEST_F(ProcedureTest, GivesBackWhatItsStepsGive) {
  EXPECT_EQ(procedure("basAny", [] { return 5; }), 5);
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(ProcedureTest, AFailureIsShownLetterForLetter) {
  procedure("basAny", [] { fail(FailureNumber::overflow); });
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Procedure error in 'basAny'.  Reason: Overflow(6)."));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::ok));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre(""));  // The default title.
}

TEST_F(ProcedureTest, AfterAFailureTheCallerGetsTheDefaultResult) {
  EXPECT_FALSE(procedure("basAny", []() -> bool { fail(FailureNumber::fileNotFound); }));
  EXPECT_EQ(procedure("basAny", []() -> Int32 { fail(FailureNumber::fileNotFound); }), 0);
  EXPECT_EQ(procedure("basAny", []() -> std::string { fail(FailureNumber::fileNotFound); }), "");
}

TEST_F(ProcedureTest, WhatWasDoneBeforeAFailureStays) {
  int done = 0;
  procedure("basAny", [&] {
    done = 1;
    fail(FailureNumber::subscriptOutOfRange);
  });
  EXPECT_EQ(done, 1);
}

TEST_F(ProcedureTest, AFailureEndsTheInnermostProcedureAlone) {
  bool wentOn = false;
  procedure("basOuter", [&] {
    procedure("basInner", [] { fail(FailureNumber::subscriptOutOfRange); });
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basInner", "Subscript out of range(9)")));
}

TEST_F(ProcedureTest, SomeProceduresGoOnWithTheNextStepAfterAFailure) {
  int done = 0;
  procedureGoingOn(
      "Timer1_Timer", [&] { ++done; }, [] { fail(FailureNumber::overflow); }, [&] { ++done; });
  EXPECT_EQ(done, 2);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("Timer1_Timer", "Overflow(6)")));
}

TEST_F(ProcedureTest, ExhaustedMemoryIsAFailureToo) {
  procedure("basAny", [] { throw std::bad_alloc(); });
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basAny", "Out of memory(7)")));
  EXPECT_EQ(ignoringFailure([] { throw std::bad_alloc(); }), 7);
}

TEST_F(ProcedureTest, AnIgnoredFailureLeavesItsNumberAlone) {
  EXPECT_EQ(ignoringFailure([] { fail(FailureNumber::pathNotFound); }), 76);
  EXPECT_EQ(ignoringFailure([] {}), 0);
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

}  // namespace
}  // namespace quernstoke
