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

  EXPECT_EQ(typeOf(&text) + " " + textOf(&text), "S MB");
  EXPECT_EQ(typeOf(&truth) + " " + textOf(&truth), "B True");
  EXPECT_EQ(typeOf(&small) + " " + textOf(&small), "N -1");
  EXPECT_EQ(typeOf(&large) + " " + textOf(&large), "N 70000");
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

  EXPECT_EQ(text, "True");
  EXPECT_TRUE(truth);
  EXPECT_EQ(small, -32768);
  EXPECT_EQ(large, 70000);
}

TEST(SettingFields, NumberTooLargeForTheVariableFails) {
  Int16 small = 5;

  EXPECT_FAILURE(overflow, assign(&small, "", 32768));
  EXPECT_FAILURE(overflow, assign(&small, "", -32769));
  EXPECT_EQ(small, 5);
}

TEST(SettingFields, TextThatSaysNeitherTrueNorFalseFails) {
  bool truth = true;

  EXPECT_FAILURE(typeMismatch, assign(&truth, "perhaps", 0));
  EXPECT_TRUE(truth);
}

}  // namespace
}  // namespace quernstoke
