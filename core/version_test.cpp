#include "core/version.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(MainCaption, TellsTheRevisionIfThereIsOne) {
  EXPECT_EQ(mainCaption({2, 0, 0}), "Quernstoke 2.0 - Find Duplicate Files");
  EXPECT_EQ(mainCaption({2, 0, 3}), "Quernstoke 2.0.3 - Find Duplicate Files");
}

}  // namespace
}  // namespace quernstoke
