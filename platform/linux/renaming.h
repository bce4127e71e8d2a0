#pragma once

namespace quernstoke {

// Renames an entry of one open directory to an entry of another, as renameat does, but fails with
// EEXIST where there is something already. Both return 0, or -1 with errno set.
int renameWithoutReplacing(int from, const char* oldName, int to, const char* newName);

// The same for a file on a file system that knows no such renaming: by a second link, which can't
// replace anything either. The file is under one of its names at every moment.
int renameByLink(int from, const char* oldName, int to, const char* newName);

}  // namespace quernstoke
