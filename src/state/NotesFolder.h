#pragma once

#include "state/Application.h"

namespace tarvo {

/// The notes on unfinished work, in the folder \Backup\Unfinished of the program folder. The folder
/// stands while there is one.

/// Without a backslash at its end.
Text NotesFolder(const Application& app);

/// True when there are notes on games, this one or another. A failure is noted.
bool HasNotes(Application& app);

/// The path of a note on the present game, whichever way led to its folder.
Text NotePath(Application& app, TextView ending);

/// The note is on the disk when this returns.
void WriteNote(Application& app, const Text& path, const FileText& text);

void RemoveNote(Application& app, const Text& path);

/// Deletes the folder of the notes where none is left.
void RemoveEmptyNotesFolder(Application& app);

}  // namespace tarvo
