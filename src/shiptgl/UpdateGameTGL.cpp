#include "shiptgl/UpdateGameTGL.h"

#include "platform/Windows.h"
#include "shiptgl/ShipDefinition.h"
#include "state/ChangeTogether.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "tgl/TGLFile.h"

namespace tarvo {
namespace {

TGLString RequireEntry(const TGLStrings& strings, const Text& name) {
  const TGLStrings::Entry entry = strings.Lookup(name);
  if (!entry) throw RaisedError(u"UpdateGameTGL", u"There is no entry \"" + name + u"\".");
  return *entry;
}

void Add(TGLStrings& strings, const TGLString& string) {
  strings.Add(string.Name, string.Data, string.MediaFilename);
}

/// One merge. `atWork` is the file at fault when a step throws.
class Merge {
 public:
  Merge(Application& app, const Text& ship)
      : app_(app),
        definition_(app.machine.files),
        ships_(app.machine.files),
        quickBattle_(app.machine.files),
        ship_(ship) {
    definition_.SetFilename(DefinitionPath(app.ProgramFolder, ship));
    ships_.SetFilename(app.State.GamePath + u"\\data\\TGL\\Ships.TGL");
    quickBattle_.SetFilename(app.State.GamePath + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL");
  }

  const TGLFile* atWork = nullptr;
  bool IsOfGame(const Text& path) const {
    return path == ships_.Filename() || path == quickBattle_.Filename();
  }

  void Run() {
    for (TGLFile* file : {&definition_, &ships_, &quickBattle_}) On(*file).Load();
    const GameStrings strings = GameStringsOf(On(definition_).Strings(), ship_);
    if (ships_.Strings().Lookup(strings.Name.Name)) Remove(strings);
    Add(ships_.Strings(), strings.Name);
    Add(ships_.Strings(), strings.Description);
    Add(quickBattle_.Strings(), strings.QuickBattle);
    ChangeTogether(app_, {ChangeOf(ships_), ChangeOf(quickBattle_)});
  }

 private:
  TGLFile& On(TGLFile& file) {
    atWork = &file;
    return file;
  }

  FileChange ChangeOf(TGLFile& file) { return {file.Filename(), On(file).Bytes()}; }

  /// A string of Quick Battle that is missing, as it was after a merge that was cut short, is none
  /// to be removed.
  void Remove(const GameStrings& strings) {
    On(ships_).Strings().Remove(strings.Name.Name);
    ships_.Strings().Remove(strings.Description.Name);
    TGLStrings& quickBattle = On(quickBattle_).Strings();
    if (quickBattle.Lookup(strings.QuickBattle.Name)) quickBattle.Remove(strings.QuickBattle.Name);
  }

  Application& app_;
  TGLFile definition_, ships_, quickBattle_;
  Text ship_;
};

}  // namespace

GameStrings GameStringsOf(const TGLStrings& definition, const Text& ship) {
  GameStrings strings{RequireEntry(definition, NameEntry(ship)),
                      RequireEntry(definition, DescriptionEntry(ship)),
                      RequireEntry(definition, QuickBattleEntry(ship))};
  strings.QuickBattle.Name.erase(0, 2);
  return strings;
}

bool UpdateGameTGL(Application& app, const Text& ship) {
  Merge merge(app, ship);
  Text atFault;
  try {
    merge.Run();
    return true;
  } catch (const RaisedError& error) {
    atFault = merge.atWork->Filename();
    NoteFailure(app, error, atFault);
  } catch (const PlatformError& error) {
    atFault = error.Path;
    NoteFailure(app, error);
  }
  if (merge.IsOfGame(atFault)) {
    app.machine.windows.ShowMessage(
        u"A Text Database of the Game is at fault, not your Definition!!!\n\n" +
            app.Failures.back().Words,
        u"", BoxIcon::Critical);
  }
  app.dialogue.PacMsg(u"Your " + ship + u".TGL file is not Valid with " + app.State.AppVersion +
                          u", Please make a new one!",
                      Title::Critical);
  return false;
}

}  // namespace tarvo
