#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"
#include "platform/fileSystem.h"

namespace quernstoke {

// One of the two files of a comparison. Its handles are 0 until they are opened, and are closed
// with it: no handle lasts longer than a pair.
class ComparedFile {
 public:
  ComparedFile(Int32 fileNumber, std::vector<char>& readBuffer)
      : file(fileNumber), buffer(&readBuffer) {}
  ComparedFile(const ComparedFile&) = delete;
  ComparedFile& operator=(const ComparedFile&) = delete;
  ~ComparedFile();

  Int32 file;
  std::string_view data;  // The block last read: a view of the buffer or of the block pool.
  FileNumber actualHandle = 0;
  FileNumber localHandle = 0;
  bool isAtActualFile = false;  // Its blocks come from the file itself from now on.
  bool hasBlock = false;        // Whether the last read gave a block.
  bool isPutOff = false;        // The last read was of a first block and has yet to be done.
  std::vector<char>* buffer;
};

// How much of two files is equal, block by block, as a percentage: 100 when nothing differed, the
// place of the last equal block if that is beyond ContentPercentLimit, otherwise 0. A file that
// can't be read gets the state unreadable.
Int16 basCompareFileContent(Int32 primary, Int32 secondary, Int32 groupFirst, Int32 groupCount);

// Reads one block of a file into its data, from the pool, its local copy or the file itself, and
// keeps it for the next comparison. A negative block asks for the file's tail. A first block may be
// put off instead, with isPutOff set, if what is known of it is likely to tell the file apart.
void basCompareFileContentReadBlock(ComparedFile& side, Int32 block, bool& readFailed,
                                    Int32 groupFirst, Int32 groupCount);

// Opens an existing file for reading, or with `mode` update for writing too. Returns -1 on failure.
FileNumber basCompareFileContentOpenFile(const std::string& path, OpenMode mode);

}  // namespace quernstoke
