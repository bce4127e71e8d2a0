#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "detect/beginnings.h"
#include "detect/contentCompare.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "progress/scanStatus.h"
#include "testing/engineTest.h"

namespace quernstoke {

inline constexpr int primary = 1;
inline constexpr int secondary = 2;
inline constexpr int third = 3;
inline constexpr int normal = fileState::normal;
inline constexpr int unreadable = fileState::unreadable;

// A text with each of its characters made a whole block.
inline std::string blocks(std::string_view letters) {
  std::string text;
  for (const char letter : letters)
    text.append(static_cast<std::size_t>(BlockSize.raw()), letter);
  return text;
}

// So many blocks, each different from all others.
inline std::string differentBlocks(int count) {
  std::string letters;
  for (int block = 0; block < count; ++block)
    letters += static_cast<char>('!' + block);
  return blocks(letters);
}

inline std::string withChangedByte(std::string text, std::size_t fromEnd) {
  text[text.size() - fromEnd] = '\n';
  return text;
}

inline std::vector<int> localRange(Int32 file) {
  return {FileTable.FileLocalPos[localPosLowest][file].raw(),
          FileTable.FileLocalPos[localPosHighest][file].raw()};
}

inline std::string pathOf(Int32 file) {
  return "C:\\d\\" + std::string(FileTable.FileName[file]);
}

// As if all slots were taken.
inline void exhaustPool() {
  BlockPoolNext[BlockPoolCount + 1] = -1;
}

inline void keepInPool(Int32 file, std::string_view content) {
  const auto length = static_cast<std::size_t>(BlockSize.raw());
  for (Int32 block = 0; !content.empty(); ++block) {
    ASSERT_NE(basLLWriteBuffer(file, file, block, content.substr(0, length)), -1);
    content.remove_prefix(length);
  }
}

class ContentCompareTest : public EngineTest {
 protected:
  ContentCompareTest() {
    openLog();
    allocateBlockPool(4, 200);
    ContentPercentLimit = 50;
  }

  // Makes these files, named "a", "b"... in the directory C:\d, the one group of the catalogue, as
  // the match loop comes to it.
  void makeGroup(const std::vector<std::string>& contents) {
    std::vector<CatalogueFile> rows;
    for (const std::string& content : contents) {
      const std::string name(1, static_cast<char>('a' + rows.size()));
      disk.file("C:\\d\\" + name, content);
      rows.push_back({name, "C:\\d", static_cast<int>(content.size())});
    }
    buildCatalogue(rows);
    basLLInitializeBuffer(1, FileCount, BlockPoolCount, FileCount);
    Beginnings.redim(1, FileCount > 2 ? FileCount : Int32(0));
  }

  // A group of three equal files that finds no room in the pool, so that local copies are made.
  void makeGroupOfCopies(std::string_view letters) {
    makeGroup({blocks(letters), blocks(letters), blocks(letters)});
    exhaustPool();
    LocalCopyActive = true;
    TempSpaceBudgetKB = 100;
    TempFileCounter = 1;
  }

  // Gives a file a local copy of this content, as an earlier pair would have left it.
  void giveLocalCopy(Int32 file, const std::string& content, int lowest, int highest) {
    disk.file(copyA, content);
    FileTable.FileLocalName.set(file, copyA);
    FileTable.FileLocalPos[localPosLowest][file] = lowest;
    FileTable.FileLocalPos[localPosHighest][file] = highest;
  }

  static int compare(Int32 one = primary, Int32 other = secondary) {
    return basCompareFileContent(one, other, 1, FileCount).raw();
  }

  int comparePair(const std::string& one, const std::string& other) {
    makeGroup({one, other});
    return compare();
  }

  std::vector<std::int64_t> positionsRead(const std::string& path) const {
    std::vector<std::int64_t> positions;
    for (const DiskCall& call : disk.calls)
      if (call.action == DiskAction::read && call.path == path) positions.push_back(call.position);
    return positions;
  }

  std::vector<OpenMode> modesOpened(const std::string& path) const {
    std::vector<OpenMode> modes;
    for (const DiskCall& call : disk.calls)
      if (call.action == DiskAction::open && call.path == path) modes.push_back(call.mode);
    return modes;
  }

  int timesOpened(const std::string& path) const { return disk.count(DiskAction::open, path); }

  // Actual reads, local reads and reads from the pool.
  static std::vector<int> readCounters() {
    return {ActualReads.raw(), LocalReads.raw(), BufferReads.raw()};
  }

  void expectOnlyTheLogOpen() const { EXPECT_EQ(disk.openFiles(), 1); }

  const std::string copyA = TempDir + "\\TMP1";
  const std::string copyB = TempDir + "\\TMP2";
};

}  // namespace quernstoke
