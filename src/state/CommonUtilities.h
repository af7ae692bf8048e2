#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "state/Application.h"
#include "text/RaisedError.h"
#include "text/Text.h"

namespace tarvo {

/// The small routines that everything else calls. None of the file routines throws a failure at
/// its caller. Paths are whole game paths.

/// CheckFile's two answers, which callers compare and print.
inline constexpr TextView kFileOk = u"--> OK!";
inline constexpr TextView kFileMissing = u"--> ERROR:  Missing File!!!";

/// Tells whether a file is there. A folder counts as missing; a miss adds 1 to MissingFileCount.
/// What can't be looked at is noted, and counts as a miss here: a routine that changes something on
/// the ground of the answer asks Files itself.
TextView CheckFile(Application& app, TextView path);

/// Clears the file's attributes, the read-only mark among them. A failure ends it quietly.
void ClearReadOnly(Application& app, TextView path);

/// Copies the folders in `source`, with all that is below them, into `destination`; existing files
/// are overwritten. `source` may end in a wildcard, which picks folders: "…\Foundation\*". A file
/// that can't be copied is noted, and the others are. `last`, a path below `destination`, is copied
/// when all others have been and are on the disk, and only then.
void CopyFolders(Application& app, TextView source, TextView destination, TextView last = {});

/// Gives the whole file to a routine that only looks, and drives the progress bar of CurrentScreen
/// in steps of ReadChunkSize. A missing file, or one of no bytes, is an empty text and stays as it
/// is. One that can't be read to its end is noted, and an empty text as well: what is to be written
/// back is read by ReadWhole.
FileText ReadFileText(Application& app, const Text& path);

/// The same for a caller who has the file's stamp and sees to failures himself. Throws
/// PlatformError.
FileText ReadFollowed(Application& app, const Text& path, const FileStamp& stamp);

/// Makes `text` the file's bytes, by atomic replacement; a new file is on the disk as well. An
/// empty text changes nothing. A failure is told in a message box and noted; the file then stands
/// as it was, and the result is false.
bool WriteFileText(Application& app, TextView path, FileTextView text);

/// What WriteFileText does when it can't write, for routines that write a file piece by piece.
void TellCantWrite(Application& app, TextView path, const PlatformError& error);

/// Runs a command that may fail to write many files. Of those with the same cause the first is told
/// as ever, and the others in one box at the end.
void TellingTogether(Application& app, const std::function<void()>& run);

/// Plays a wave file, named by its whole path, unless SoundFX is off. `flags` as in Sound::Play.
void PlaySoundFX(Application& app, TextView file, unsigned flags);

/// PlaySoundFX with a file of the folder \Sfx\ of the program folder.
void PlayEffect(Application& app, TextView name, unsigned flags);

/// Notes a failure of the current command: the status line tells the first one, and how many more
/// there are.
void NoteFailure(Application& app, Failure failure);
void NoteFailure(Application& app, const PlatformError& error);
void NoteFailure(Application& app, const RaisedError& error);

/// The same with the file at fault, which is named once.
void NoteFailure(Application& app, const RaisedError& error, TextView file);

/// The error with the file at fault in front of its words, where they don't name it.
RaisedError Naming(TextView file, const RaisedError& error);

/// They in one line, from the one of that number on: the first, and how many more there are. Empty
/// when there is none.
Text FailureLine(const Application& app, std::size_t from = 0);

/// Puts them into the status line again, where something else was told since.
void ShowFailures(Application& app);

/// False, told and noted, while no game's folder is known: a path below it would be one of the
/// drive's root.
bool RequireGame(Application& app);

/// True when the last failure was that of a full disk: there is no use in going on.
bool IsDiskFull(const Application& app);

/// Runs one step of a command; a raised error or a failure of the platform ends it and is noted.
/// Gives true when the step ran to its end.
template <class Step>
bool NotingFailures(Application& app, Step&& step) {
  try {
    step();
    return true;
  } catch (const RaisedError& error) {
    NoteFailure(app, error);
  } catch (const PlatformError& error) {
    NoteFailure(app, error);
  }
  return false;
}

/// The same for a step that works on one file, which a raised error doesn't name.
template <class Step>
bool NotingFailures(Application& app, TextView file, Step&& step) {
  return NotingFailures(app, [&] {
    try {
      step();
    } catch (const RaisedError& error) {
      throw Naming(file, error);
    }
  });
}

/// `text` without blanks at its ends, up to its first NUL.
Text helper_TrimNull(TextView text);

/// The system's words for a code, or for its last error; "Unknown Win32 Error." for a code that it
/// doesn't know.
Text helper_Win32ErrorText(std::optional<std::int32_t> errorCode = {});

}  // namespace tarvo
