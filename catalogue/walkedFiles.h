#pragma once

#include <string>

#include "core/integers.h"

namespace quernstoke {

// Files of the catalogue as they stand on the disk. The procedures fail with a subscript out of
// range for a file whose directory does not belong to the list.

// The path of a file that isn't in an archive. Fails with a path not found if a damaged list has
// lost the name of its directory: the file's name alone would be that of another one, in the root.
std::string pathOnDisk(Int32 file);

// What came of a deletion.
struct Deletion {
  enum class Outcome {
    done,
    absent,   // Nothing that the walk could have come upon is there.
    refused,  // It may be another file now, or the only copy.
    failed,   // The disk has not carried it out.
  };
  Outcome outcome = Outcome::absent;
  std::string reason = {};  // Of what was refused or failed.
};

// Deletes a file from disk; what the catalogue says of it is left as it is. Only a regular file
// under the very names that the walk came upon is touched: what is reached by a link below the
// directory that the person has named counts as not there. A file of another size or date than the
// walk found is refused. So is one that another row leads to as well, or that can't be told from
// that of another row, for it would be the only copy; a row that counts as deleted is no
// exception, as its file may still be there. The rows asked after are those of its match and, as
// far as either is in no match, those of its size.
Deletion deleteWalkedFile(Int32 file);

void showUndeleted(const std::string& path, const std::string& reason);

}  // namespace quernstoke
