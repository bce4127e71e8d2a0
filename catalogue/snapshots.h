#pragma once

namespace quernstoke {

// The files ".files" and ".dir" beside the current profile hold what a scan left in FileTable and
// DirTable. What can't be written or read is told in a message box; no call fails.
void basSaveFilesList();
void basSaveDirTable();

// Returns whether there was a file to load. A damaged one empties the list.
bool basLoadFilesList();
void basLoadDirTable();

// Forgets the local copies of all files, without deleting them.
void basResetLocalFilesList();

}  // namespace quernstoke
