#include "state/NotesFolder.h"

#include <sstream>

#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "state/CommonUtilities.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {

Text NotesFolder(const Application& app) {
  return app.ProgramFolder + u"\\Backup\\Unfinished";
}

bool HasNotes(Application& app) {
  bool has = false;
  NotingFailures(app, [&] { has = app.machine.files.FolderExists(NotesFolder(app)); });
  return has;
}

Text NotePath(Application& app, TextView ending) {
  const Text game = FoldCase(app.machine.files.RealPath(app.State.GamePath));
  std::ostringstream name;
  name << std::hex << HashOf(Utf8FromText(game));
  return NotesFolder(app) + u"\\" + TextFromUtf8(name.str()) + Text(ending);
}

void WriteNote(Application& app, const Text& path, const FileText& text) {
  MakeFolders(app.machine.files, NotesFolder(app));
  WriteWhole(app.machine.files, path, text);
}

void RemoveNote(Application& app, const Text& path) {
  app.machine.files.Remove(path);
  RemoveEmptyNotesFolder(app);
}

void RemoveEmptyNotesFolder(Application& app) {
  Guarded([&] {
    const Text folder = NotesFolder(app);
    if (app.machine.files.FolderExists(folder)) app.machine.files.RemoveFolder(folder);
  });
}

}  // namespace tarvo
