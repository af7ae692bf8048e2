#pragma once

#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "shiptgl/ShipDefinition.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {

/// A game with both text databases, and a program folder for definitions.
class TGLMachine {
 public:
  TGLMachine() {
    machine.app.State.GamePath = machine.GameFolder();
    machine.app.State.AppVersion = u"BETA v4.0";
    for (const Text& path : {ships, quickBattle}) {
      machine.WriteFile(path, "");
      Write(path,
            {{u"Galaxy", u"Galaxy Class", u"Galaxy.wav"}, {u"Other", u"Another", u"Other.wav"}});
    }
    machine.disk->MakeFolder(machine.ProgramFolder() + u"\\ShipTGLs");
  }

  void Write(const Text& path, const std::vector<TGLString>& strings) {
    TGLFile file(*machine.disk);
    for (const TGLString& string : strings) {
      file.Strings().Add(string.Name, string.Data, string.MediaFilename);
    }
    file.Update(path, true);
  }

  void Define(const Text& ship, const ShipTexts& texts) {
    TGLFile file(*machine.disk);
    AddDefinition(file.Strings(), ship, texts);
    file.Update(Definition(ship), true);
  }

  /// The strings of a database by name, less the two that the game had from the start.
  std::map<Text, TGLString> Strings(const Text& path) {
    TGLFile file(*machine.disk);
    file.SetFilename(path);
    file.Load();
    std::map<Text, TGLString> strings;
    for (const auto& entry : file.Strings()) strings[entry->Name] = *entry;
    strings.erase(u"Galaxy");
    strings.erase(u"Other");
    return strings;
  }

  Text Definition(const Text& ship) { return DefinitionPath(machine.ProgramFolder(), ship); }

  TestMachine machine;
  Text ships = machine.GameFolder() + u"\\data\\TGL\\Ships.TGL";
  Text quickBattle = machine.GameFolder() + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL";
};

}  // namespace tarvo::test
