#include "platform/linux/linuxLocale.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

const DateTime newYearsEve = dateTime({2024, 12, 31, 23, 59, 58});

// Locales made for the tests, as a machine may have none but "C". They are used in a process of
// their own, as the system's library never frees what it remembers of the places to find them.
class MadeLocalesDeathTest : public testing::Test {
 protected:
  MadeLocalesDeathTest() : locations_("LOCPATH", tree_.root()) {}

  bool make(const std::string& source, const std::string& charset, const std::string& name) const {
    const std::string command = "localedef -c -i " + source + " -f " + charset + " '" +
                                tree_.path(name) + "' >/dev/null 2>&1";
    return std::system(command.c_str()) >= 0 && tree_.exists(name);
  }

  TemporaryTree tree_;
  ScopedVariable locations_;
};

[[noreturn]] void tellAndExit() {
  LinuxLocale locale;
  std::cerr << locale.generalDate(newYearsEve) << " '" << locale.thousandsSeparator() << "' '"
            << locale.decimalPoint() << "' " << locale.lower("Ä") << std::endl;
  std::_Exit(0);
}

void expectTold(const std::string& pattern) {
  EXPECT_EXIT(tellAndExit(), testing::ExitedWithCode(0), pattern);
}

TEST(LinuxLocale, FormatsDatesAsTheCLocaleDoes) {
  const ScopedVariable all("LC_ALL", "C");
  LinuxLocale locale;
  EXPECT_EQ(locale.shortDate(newYearsEve), "12/31/24");
  EXPECT_EQ(locale.generalDate(newYearsEve), "12/31/24 23:59:58");
}

TEST(LinuxLocale, GivesTheSeparatorsOfTheCLocale) {
  const ScopedVariable all("LC_ALL", "C");
  LinuxLocale locale;
  EXPECT_EQ(locale.thousandsSeparator(), "");
  EXPECT_EQ(locale.decimalPoint(), ".");
}

TEST(LinuxLocale, AMissingLocaleIsTheCLocale) {
  const ScopedVariable all("LC_ALL", "xx_NOWHERE.UTF-8");
  EXPECT_EQ(LinuxLocale().shortDate(newYearsEve), "12/31/24");
}

TEST(LinuxLocale, MapsCaseWhateverTheLocale) {
  const ScopedVariable all("LC_ALL", "C");
  LinuxLocale locale;
  EXPECT_EQ(locale.lower("Ä\xFFΩ"), "ä\xFFω");
  EXPECT_EQ(locale.upper("ä\xFFω"), "Ä\xFFΩ");
}

TEST(LinuxLocale, DatesOfThreeDigitYearsCanBeShown) {
  const ScopedVariable all("LC_ALL", "C");
  EXPECT_EQ(LinuxLocale().shortDate(dateTime({100, 1, 2, 0, 0, 0})), "01/02/00");
}

TEST_F(MadeLocalesDeathTest, FollowTheEnvironmentAndNotTheProcess) {
  if (!make("de_DE", "UTF-8", "de_DE.UTF-8")) GTEST_SKIP() << "no German locale to make";
  const ScopedVariable all("LC_ALL", "de_DE.UTF-8");
  ASSERT_STREQ("C", std::setlocale(LC_ALL, nullptr));
  expectTold("31[.]12[.]2024 23:59:58 '[.]' ',' ä");
}

TEST_F(MadeLocalesDeathTest, AMissingCategoryLeavesTheOthers) {
  if (!make("de_DE", "UTF-8", "de_DE.UTF-8")) GTEST_SKIP() << "no German locale to make";
  const ScopedVariable all("LC_ALL", std::nullopt);
  const ScopedVariable language("LANG", "de_DE.UTF-8");
  const ScopedVariable time("LC_TIME", "xx_NOWHERE.UTF-8");
  expectTold("12/31/24 23:59:58 '[.]' ',' ä");
}

TEST_F(MadeLocalesDeathTest, OneThatIsNotUtf8IsTheCLocale) {
  if (!make("de_DE", "ISO-8859-1", "de_DE")) GTEST_SKIP() << "no German locale to make";
  const ScopedVariable all("LC_ALL", "de_DE");
  expectTold("12/31/24 23:59:58 '' '[.]'");
}

}  // namespace
}  // namespace quernstoke
