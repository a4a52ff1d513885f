// The commands of the main window that work on the files of the map folder: copy, rename, delete, copy the name. Each
// works on the current row of the folder's file list and reports a failure itself; the lists then keep their state.
#pragma once

#include "forms/common_dialog.h"
#include "forms/file_list_box.h"

namespace kestrun {

// Copies the map to where the save dialogue says, replacing an existing file after a question.
void CopyMapTo(FileListBox& maps, CommonDialog& dlgcopyto);

// Gives the map another name in its folder. An existing file of that name is never replaced, whatever the answer to
// the question: the user has to delete it first. A change of capitals only is no change.
void RenameMap(FileListBox& maps);

// Deletes the map after a question. True when it is gone: the list that the user sees is then to be made anew.
bool DeleteMap(FileListBox& maps);

// Puts the map's file name, without its folder, on the clipboard.
void CopyMapName(FileListBox& maps);

}  // namespace kestrun
