#include "detect/runKey.h"

#include <utility>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"

namespace quernstoke {

RunStep RunKey::next(Int32 file) {
  RunStep step{true, FileTable.FileStatus[statusState][file] == fileState::removed};
  if (key_ == "SIZE") {
    const Int32 size = FileTable.FileSize[file];
    step.same = std::exchange(lastNumber_, size) == size;
  } else if (key_ == "MATCHNUM") {
    const Int32 number = FileTable.FileStatus[statusMatch][file];
    if (number == noMatch)
      step.skip = true;
    else
      step.same = std::exchange(lastNumber_, number) == number;
  } else if (key_ == "NAME") {
    const std::string_view name = FileTable.FileName[file];
    step.same = std::exchange(lastText_, name) == name;
  } else if (key_ == "DIRECTORY") {
    const std::string_view name = DirTable[FileTable.FileDirNum[file]].name;
    step.same = std::exchange(lastText_, name) == name;
  }
  return step;
}

}  // namespace quernstoke
