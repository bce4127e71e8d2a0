#include "settings/settingKeys.h"

#include <gtest/gtest.h>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(SettingFields, KindOfTheVariableGivesTypeAndText) {
  std::string text = "MB";
  bool truth = true;
  Int16 small = -1;
  Int32 large = 70000;

  EXPECT_EQ("S MB", typeOf(&text) + " " + textOf(&text));
  EXPECT_EQ("B True", typeOf(&truth) + " " + textOf(&truth));
  EXPECT_EQ("N -1", typeOf(&small) + " " + textOf(&small));
  EXPECT_EQ("N 70000", typeOf(&large) + " " + textOf(&large));
}

TEST(SettingFields, TextAndTruthTakeTheValueAndNumbersTheNumber) {
  std::string text;
  bool truth = false;
  Int16 small;
  Int32 large;
  assign(&text, "True", 3);
  assign(&truth, "True", 0);
  assign(&small, "True", -32768);
  assign(&large, "True", 70000);

  EXPECT_EQ("True", text);
  EXPECT_TRUE(truth);
  EXPECT_EQ(-32768, small);
  EXPECT_EQ(70000, large);
}

TEST(SettingFields, NumberTooLargeForTheVariableFails) {
  Int16 small = 5;

  EXPECT_FAILURE(overflow, assign(&small, "", 32768));
  EXPECT_FAILURE(overflow, assign(&small, "", -32769));
  EXPECT_EQ(5, small);
}

TEST(SettingFields, TextThatSaysNeitherTrueNorFalseFails) {
  bool truth = true;

  EXPECT_FAILURE(typeMismatch, assign(&truth, "perhaps", 0));
  EXPECT_TRUE(truth);
}

}  // namespace
}  // namespace quernstoke
