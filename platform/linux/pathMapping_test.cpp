#include "platform/linux/pathMapping.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/scopedVariable.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

std::string utf8(unsigned code) {
  return {static_cast<char>(0xE0U | (code >> 12)), static_cast<char>(0x80U | ((code >> 6) & 0x3FU)),
          static_cast<char>(0x80U | (code & 0x3FU))};
}

std::string roundTrip(const std::string& name) {
  return linuxName(windowsName(name));
}

TEST(PathMapping, LeavesOrdinaryNamesAlone) {
  for (const char* name :
       {"", "readme.txt", ".profile", "a b", "M\xC3\xBCsli", "~!@#$%^&()[]{};',`"}) {
    EXPECT_EQ(windowsName(name), name);
    EXPECT_FALSE(needsWindowsName(name));
  }
}

TEST(PathMapping, ShowsReservedCharactersAsStandIns) {
  for (const unsigned char reserved : std::string("\\:*?\"<>|\x01\t\n\x1F"))
    EXPECT_EQ(windowsName("a" + std::string(1, static_cast<char>(reserved)) + "b"),
              "a" + utf8(0xF000U + reserved) + "b");
}

TEST(PathMapping, HidesEveryCharacterThatARecordOrPathCouldTripOver) {
  std::string all;
  for (int byte = 1; byte < 128; ++byte)
    if (byte != '/') all += static_cast<char>(byte);
  const std::string shown = windowsName(all);
  EXPECT_EQ(shown.find_first_of("\\:*?\"<>|\r\n\t"), std::string::npos);
  for (const char character : shown)
    EXPECT_FALSE(character >= 1 && character < 32);
}

TEST(PathMapping, EverySingleByteSurvivesTheRoundTrip) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string name = "a" + std::string(1, static_cast<char>(byte)) + "b";
    EXPECT_EQ(roundTrip(name), name) << byte;
  }
}

TEST(PathMapping, EveryPairOfCriticalPiecesSurvivesTheRoundTripUnderItsOwnName) {
  const std::string pieces[] = {"\\",
                                "?",
                                "\x01",
                                "a",
                                "\xEF",
                                "\xEF\x80",
                                "\x80",
                                "\x81\x9C",
                                "\xC3",
                                utf8(0xF000),
                                utf8(0xF05C),
                                utf8(0xF03F),
                                utf8(0xF041),
                                utf8(0xF020),
                                utf8(0xF07F),
                                utf8(0xEFFF),
                                "\xF0\x9F\x98\x80"};
  std::set<std::string> linuxNames;
  std::set<std::string> windowsNames;
  for (const std::string& first : pieces)
    for (const std::string& second : pieces)
      for (const std::string& third : pieces) {
        const std::string name = first + second + third;
        EXPECT_EQ(roundTrip(name), name);
        linuxNames.insert(name);
        windowsNames.insert(windowsName(name));
      }
  EXPECT_EQ(windowsNames.size(), linuxNames.size());
}

TEST(PathMapping, ALiteralStandInIsEscaped) {
  EXPECT_EQ(windowsName(utf8(0xF05C)), utf8(0xF000) + utf8(0xF05C));
  EXPECT_EQ(windowsName("\\"), utf8(0xF05C));
  EXPECT_EQ(windowsName(utf8(0xF041)), utf8(0xF041));
}

TEST(PathMapping, AnEscapeThatEscapesNothingStandsForItself) {
  EXPECT_EQ(linuxName(utf8(0xF000) + "a"), utf8(0xF000) + "a");
  EXPECT_EQ(linuxName(utf8(0xF000)), utf8(0xF000));
}

using Paths = std::vector<std::pair<std::string, std::string>>;

void expectLinuxPaths(const DriveTable& drives, const Paths& linuxByProgram) {
  for (const auto& [program, expected] : linuxByProgram)
    EXPECT_EQ(drives.linuxPath(program), expected) << program;
}

void expectProgramPaths(const DriveTable& drives, const Paths& programByLinux) {
  for (const auto& [path, expected] : programByLinux)
    EXPECT_EQ(drives.programPath(path), expected) << path;
}

TEST(DriveTable, RootIsDriveC) {
  const DriveTable drives;
  expectLinuxPaths(drives, {{"C:\\", "/"}, {"c:", "/"}, {"\\", "/"}});
  EXPECT_EQ(drives.programPath("/"), "C:\\");
  EXPECT_EQ(drives.letters(), "C");
}

TEST(DriveTable, TurnsProgramPathsIntoLinuxPaths) {
  expectLinuxPaths(DriveTable(), {{"C:\\a\\b", "/a/b"},
                                  {"\\a\\b", "/a/b"},
                                  {"C:/a/b", "/a/b"},
                                  {"C:\\a\\\\b\\\\", "/a/b"},
                                  {"a\\b", "a/b"},
                                  {"..\\", ".."},
                                  {"", ""}});
}

TEST(DriveTable, TurnsLinuxPathsIntoProgramPaths) {
  expectProgramPaths(DriveTable(), {{"/home/ann", "C:\\home\\ann"},
                                    {"/home//ann/", "C:\\home\\ann"},
                                    {"/a\\b", "C:\\a" + utf8(0xF05C) + "b"}});
}

TEST(DriveTable, NamesWithReservedCharactersSurviveInWholePaths) {
  const DriveTable drives;
  const std::string path = "/a\\b/c:d/\xFF\n\"/" + utf8(0xF05C) + "/e?";
  EXPECT_EQ(drives.linuxPath(drives.programPath(path)), path);
}

TEST(DriveTable, FindsTheDriveWithTheLongestDirectory) {
  const DriveTable drives = DriveTable::parse("D:=/mnt;E:=/mnt/data/");
  expectProgramPaths(drives, {{"/mnt/data/x", "E:\\x"},
                              {"/mnt/data", "E:\\"},
                              {"/mnt/database", "D:\\database"},
                              {"/mntx", "C:\\mntx"}});
  expectLinuxPaths(drives, {{"e:\\x", "/mnt/data/x"}, {"E:\\", "/mnt/data"}, {"d:", "/mnt"}});
  EXPECT_EQ(drives.letters(), "CDE");
}

TEST(DriveTable, IgnoresBadEntries) {
  const DriveTable drives = DriveTable::parse(
      ";;x;D:;E:=relative;FF:=/f;5:=/five;C:=/other;G=/g;H:=/good;h:=/late;=/;I:=");
  EXPECT_EQ(drives.letters(), "CH");
  expectLinuxPaths(drives, {{"C:\\a", "/a"}, {"H:\\a", "/good/a"}});
}

TEST(DriveTable, AnUnknownDriveIsAPathNotFound) {
  EXPECT_FAILURE(pathNotFound, DriveTable().linuxPath("Z:\\a"));
}

TEST(DriveTable, APathWithANulIsAPathNotFound) {
  EXPECT_FAILURE(pathNotFound, DriveTable().linuxPath(std::string_view("C:\\a\0b", 6)));
}

TEST(DriveTable, ReadsTheEnvironment) {
  const ScopedVariable variable("QUERNSTOKE_DRIVES", "D:=/mnt/data;E:=/media/usb");
  const DriveTable drives = DriveTable::fromEnvironment();
  EXPECT_EQ(drives.linuxPath("D:\\a"), "/mnt/data/a");
  EXPECT_EQ(drives.programPath("/media/usb/b"), "E:\\b");
}

TEST(DriveTable, WithoutTheVariableThereIsOnlyDriveC) {
  const ScopedVariable variable("QUERNSTOKE_DRIVES", std::nullopt);
  EXPECT_EQ(DriveTable::fromEnvironment().letters(), "C");
}

}  // namespace
}  // namespace quernstoke
