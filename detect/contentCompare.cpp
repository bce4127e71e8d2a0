#include "detect/contentCompare.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/scanState.h"
#include "core/text.h"
#include "detect/beginnings.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "platform/platform.h"
#include "platform/utf8.h"
#include "progress/scanStatus.h"

namespace quernstoke {

namespace {

constexpr int smallestPooledGroup = 3;  // In a group of two each block is read once.

enum class ReadSource { none, actualFile, localCopy, pool };

void closeIfOpen(FileNumber file) {
  if (file > 0) ignoringFailure([&] { files().close(file); });
}

Int32 absolute(Int32 block) {
  return block < 0 ? -block : block;
}

std::int64_t positionOf(Int32 block) {
  return (absolute(block) * BlockSize).raw();
}

std::string actualPath(Int32 file) {
  return DirTable[FileTable.FileDirNum[file]].name + "\\" + std::string(FileTable.FileName[file]);
}

void openAt(FileNumber& handle, const std::string& path, OpenMode mode, Int32 block,
            bool& readFailed) {
  handle = basCompareFileContentOpenFile(path, mode);
  if (handle > 0)
    files().seek(handle, positionOf(block));
  else
    readFailed = true;
}

// Reads at most `length` bytes at the file's position.
void readAtPosition(ComparedFile& side, FileNumber handle, std::size_t length) {
  side.buffer->resize(length);
  side.data = {};
  side.data = {side.buffer->data(), files().read(handle, *side.buffer)};
}

void readBlockAtPosition(ComparedFile& side, FileNumber handle) {
  readAtPosition(side, handle, static_cast<std::size_t>(BlockSize.raw()));
}

void probeLocalCopy(const std::string& localName) {
  if (ignoringFailure([&] { files().length(localName); }) != 0)
    basLogMsg("Error getting file length from file " + localName);
}

void extractIfZipEntry(Int32 file, bool& readFailed) {
  const DirRow& folder = DirTable[FileTable.FileDirNum[file]];
  if (folder.kind != dirKind::zipFolder || !FileTable.FileLocalName[file].empty()) return;
  const std::string name = basExtractZipEntry(DirTable[folder.parent].name, folder.name,
                                              std::string(FileTable.FileName[file]), false);
  if (name.empty())
    readFailed = true;
  else
    FileTable.FileLocalName.set(file, name);
}

bool isInLocalCopy(Int32 file, Int32 block) {
  const Int32 lowest = FileTable.FileLocalPos[localPosLowest][file];
  return !FileTable.FileLocalName[file].empty() && lowest != -1 && block >= lowest &&
         block <= FileTable.FileLocalPos[localPosHighest][file];
}

void readLocalCopy(ComparedFile& side, Int32 block, bool& readFailed) {
  const std::string name(FileTable.FileLocalName[side.file]);
  if (side.localHandle == 0) openAt(side.localHandle, name, OpenMode::update, block, readFailed);
  if (side.localHandle <= 0) return;
  if (ignoringFailure([&] { readBlockAtPosition(side, side.localHandle); }) != 0) {
    basLogMsg("Error reading from file " + name);
    readFailed = true;
  }
  // A copy that does not begin with the file's first block ends too early when it is read by block
  // number. What it lacks equals nothing, or two such copies would make a match of two files that
  // differ.
  if (side.data.empty()) side.data = missingBlock;
  side.hasBlock = !isMissing(side.data);
  ++LocalReads;
}

// The tail begins one byte before the last block's length, and afterwards reading goes on where it
// was, so that each later block is read under the number of the one behind it.
void seekTail(FileNumber handle) {
  files().seek(handle, files().openLength(handle) - BlockSize.raw() - 1);
}

// A zip entry has no path on disk, nor has a file whose directory a damaged list has lost. What
// there is of one might still be the path of another file, from the root or the current directory,
// so it is not even tried.
bool hasPathOnDisk(Int32 file) {
  const DirRow& directory = DirTable[FileTable.FileDirNum[file]];
  return directory.kind != dirKind::zipFolder && !directory.name.empty();
}

void openActualFile(ComparedFile& side, Int32 block, bool& readFailed) {
  if (hasPathOnDisk(side.file))
    openAt(side.actualHandle, actualPath(side.file), OpenMode::sharedBinary, block, readFailed);
  else
    readFailed = true;
}

// Whether the first block of a file is remembered for the other pairs of the group. A file with a
// local copy has that.
bool mayRemember(Int32 file) {
  return !LocalCopyActive && FileTable.FileLocalName[file].empty() && Beginnings.isInGroup(file);
}

void putOff(ComparedFile& side) {
  side.data = unreadBlock;
  side.isPutOff = true;
}

// Reads as much of the first block as tells it from most others, and remembers it.
void readBeginning(ComparedFile& side) {
  readAtPosition(side, side.actualHandle, BeginningsTable::lengthToRead(BlockSize));
  Beginnings.remember(side.file, side.data);
  if (side.data.size() == BeginningsTable::lengthToRead(BlockSize) && BlockSize > side.data.size())
    putOff(side);
}

ReadSource readActualFile(ComparedFile& side, Int32 block, bool& readFailed) {
  if (block == 0 && Beginnings.knows(side.file)) {
    putOff(side);
    ++ActualReads;
    return ReadSource::actualFile;
  }
  if (side.actualHandle == 0) openActualFile(side, block, readFailed);
  if (side.actualHandle > 0) {
    const bool isBeginning = block == 0 && mayRemember(side.file);
    if (block < 0) seekTail(side.actualHandle);
    const auto read = [&] {
      isBeginning ? readBeginning(side) : readBlockAtPosition(side, side.actualHandle);
    };
    if (ignoringFailure(read) != 0) {
      basLogMsg("Error reading from file " + actualPath(side.file));
      readFailed = true;
    } else if (block < 0) {
      files().seek(side.actualHandle, positionOf(block));
    }
    side.hasBlock = !readFailed && !side.isPutOff;
    ++ActualReads;
  }
  return readFailed ? ReadSource::none : ReadSource::actualFile;
}

// Whether the pool has the block.
bool readFromPool(ComparedFile& side, Int32 positionInGroup, Int32 block) {
  if (basLLReadData(side.file, positionInGroup, block, side.data) == -1) return false;
  ++BufferReads;
  side.isPutOff = isUnread(side.data);
  side.hasBlock = !side.isPutOff && !isMissing(side.data);
  return true;
}

// Reads a first block that has been put off. One from the pool leaves the file's handle alone, as
// the next block may come from the pool too.
void readPutOff(ComparedFile& side, bool& readFailed) {
  FileNumber own = 0;
  FileNumber& handle = side.isAtActualFile ? side.actualHandle : own;
  if (handle == 0)
    handle = basCompareFileContentOpenFile(actualPath(side.file), OpenMode::sharedBinary);
  readFailed = handle <= 0;
  const auto read = [&] {
    files().seek(handle, 0);
    readBlockAtPosition(side, handle);
  };
  if (!readFailed && ignoringFailure(read) != 0) {
    basLogMsg("Error reading from file " + actualPath(side.file));
    readFailed = true;
  }
  side.hasBlock = !readFailed;
  closeIfOpen(own);
}

bool fitsTempSpace() {
  return TempUsedKB + BlockSize / 1024 < TempSpaceBudgetKB;
}

void noteLocalBlock(Int32 file, Int32 block) {
  Int32& lowest = FileTable.FileLocalPos[localPosLowest][file];
  Int32& highest = FileTable.FileLocalPos[localPosHighest][file];
  if (lowest == -1) lowest = highest = block;
  if (block > highest) highest = block;
}

// Writes the block where the local copy's position is, whatever its number.
void writeLocalCopy(ComparedFile& side, Int32 block) {
  if (side.localHandle < 1) {
    std::string name(FileTable.FileLocalName[side.file]);
    side.localHandle = basOpenTempFile(name);
    FileTable.FileLocalName.set(side.file, name);
  }
  const auto writeData = [&] {
    if (!side.data.empty()) files().write(side.localHandle, side.data);
  };
  if (ignoringFailure(writeData) != 0) {
    basLogMsg("Error writting to temp file " + std::string(FileTable.FileLocalName[side.file]));
    return;
  }
  TempUsedKB += BlockSize / 1024;
  noteLocalBlock(side.file, block);
}

void keepBlock(ComparedFile& side, Int32 block, ReadSource source, Int32 positionInGroup) {
  const bool kept = source != ReadSource::pool &&
                    basLLWriteBuffer(side.file, positionInGroup, block, side.data) != -1;
  if (!kept && source == ReadSource::actualFile && LocalCopyActive && fitsTempSpace())
    writeLocalCopy(side, block);
}

void showComparison(Int32 primary, Int32 block, std::int64_t position, Int32 size) {
  constexpr int blocksPerUpdate = 1000;
  constexpr int blocksBeforeName = 10;
  constexpr std::size_t shownCharacters = 40;
  if (ScanDetailsShown) {
    if (block == 0 || block % blocksPerUpdate != 0) return;
    const std::int64_t percent = roundedQuotient(position * 100, size.raw());
    basUpdateStatusFields("Loading / comparing file content (" + std::to_string(percent) + "%)",
                          primary, 0);
  } else if (block == blocksBeforeName) {
    const std::string_view name = FileTable.FileName[primary];
    std::string text = "Checking " + std::string(firstCharacters(name, shownCharacters));
    if (characterCount(name) > shownCharacters) text += "...";
    basUpdateStatusFields(text + "  [ Size " + grouped(size.raw()) + " ]", primary, 0);
  }
}

// Files that could not be read are not equal, even if nobody marked them.
bool areEqual(const ComparedFile& first, const ComparedFile& second) {
  return first.hasBlock && second.hasBlock && first.data == second.data;
}

void markUnreadable(Int32 file) {
  FileTable.FileStatus[statusState][file] = fileState::unreadable;
}

// Reads a block of one side. A file that can't be read is marked.
bool readSide(ComparedFile& side, Int32 request, Int32 groupFirst, Int32 groupCount) {
  bool readFailed = false;
  basCompareFileContentReadBlock(side, request, readFailed, groupFirst, groupCount);
  if (readFailed) markUnreadable(side.file);
  return !readFailed;
}

// Has the first block of one side whole. A file that can't be read is marked.
bool completeBeginning(ComparedFile& side, Int32 groupFirst) {
  if (!side.isPutOff) return true;
  bool readFailed = false;
  readPutOff(side, readFailed);
  if (readFailed) {
    markUnreadable(side.file);
    return false;
  }
  std::string_view pooled;
  const Int32 slot = basLLReadData(side.file, side.file - groupFirst + 1, 0, pooled);
  if (slot != -1 && isUnread(pooled)) BlockPoolData.store(slot, side.data);
  return true;
}

// Memory may tell two files apart. For a match both are read anew.
bool beginAlike(ComparedFile& first, ComparedFile& second, Int32 groupFirst) {
  if (Beginnings.differ(first.file, second.file)) return false;
  if (!completeBeginning(first, groupFirst) || !completeBeginning(second, groupFirst)) return false;
  if (areEqual(first, second)) return true;
  if (first.hasBlock && second.hasBlock)
    Beginnings.tellApart(first.file, first.data, second.file, second.data);
  return false;
}

// The buffers outlive the pairs, so that a pair allocates nothing.
std::vector<char> primaryBuffer;
std::vector<char> secondaryBuffer;

}  // namespace

ComparedFile::~ComparedFile() {
  closeIfOpen(actualHandle);
  closeIfOpen(localHandle);
}

Int16 basCompareFileContent(Int32 primary, Int32 secondary, Int32 groupFirst, Int32 groupCount) {
  return procedure("basCompareFileContent", [&]() -> Int16 {
    constexpr int blocksBeforeTail = 50;
    constexpr int blocksBeforeYield = 10;
    Int16 result = 0;
    bool allEqual = true;
    bool tailDone = false;
    Int32 block = 0;
    const Int32 size = FileTable.FileSize[primary];
    {
      ComparedFile first(primary, primaryBuffer);
      ComparedFile second(secondary, secondaryBuffer);
      while (allEqual && block * BlockSize < size) {
        const std::int64_t position = positionOf(block);
        showComparison(primary, block, position, size);

        // Two long files with equal beginnings are tried at their ends, once.
        Int32 request = block;
        if (!tailDone && block >= blocksBeforeTail && first.actualHandle > 0 &&
            second.actualHandle > 0) {
          request = -block;
          tailDone = true;
        }
        allEqual = readSide(first, request, groupFirst, groupCount) &&
                   readSide(second, request, groupFirst, groupCount) &&
                   (block == 0 ? beginAlike(first, second, groupFirst) : areEqual(first, second));
        if (!allEqual) break;
        // The block just compared does not count yet.
        if (wholePercent(position, size.raw()) > ContentPercentLimit.raw())
          result = roundedQuotient(position * 100, size.raw());
        ++block;
      }
    }
    if (allEqual) result = 100;
    if (block >= blocksBeforeYield) basUpdateStatusFields("Scanning duplicates...", -1, 0);
    return result;
  });
}

void basCompareFileContentReadBlock(ComparedFile& side, Int32 block, bool& readFailed,
                                    Int32 groupFirst, Int32 groupCount) {
  procedure("basCompareFileContentReadBlock", [&] {
    const Int32 file = side.file;
    const Int32 positionInGroup = file - groupFirst + 1;
    ReadSource source = ReadSource::none;
    side.hasBlock = side.isPutOff = false;
    if (!FileTable.FileLocalName[file].empty())
      probeLocalCopy(std::string(FileTable.FileLocalName[file]));
    // Once a comparison has gone to the file itself, it stays there.
    if (side.isAtActualFile) source = ReadSource::actualFile;
    if (source == ReadSource::none && groupCount >= smallestPooledGroup &&
        readFromPool(side, positionInGroup, absolute(block)))
      source = ReadSource::pool;
    if (source == ReadSource::none) extractIfZipEntry(file, readFailed);
    if (source == ReadSource::none && isInLocalCopy(file, block)) source = ReadSource::localCopy;
    if (source == ReadSource::localCopy)
      readLocalCopy(side, block, readFailed);
    else if (source != ReadSource::pool)
      source = readActualFile(side, block, readFailed);
    side.isAtActualFile = source == ReadSource::actualFile;
    if (groupCount >= smallestPooledGroup && !readFailed && block >= 0)
      keepBlock(side, block, source, positionInGroup);
  });
}

FileNumber basCompareFileContentOpenFile(const std::string& path, OpenMode mode) {
  return procedure("basCompareFileContentOpenFile", [&]() -> FileNumber {
    FileNumber handle = -1;
    ignoringFailure([&] { handle = files().open(path, mode); });
    return handle;
  });
}

}  // namespace quernstoke
