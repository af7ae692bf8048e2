#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {

MATCHER_P(Holds, part, "holds the part") {
  return arg.find(part) != Text::npos;
}

/// The Game Tools opened on a game with the folders that every game has.
class GameToolsScreen : public testing::Test {
 protected:
  void SetUp() override {
    for (const TextView folder :
         {u"\\scripts\\ships\\Hardpoints", u"\\scripts\\Custom\\Ships",
          u"\\scripts\\Custom\\Autoload", u"\\sfx\\Weapons", u"\\data\\TGL\\QuickBattle"}) {
      machine.WriteFile(game + Text(folder) + u"\\read me.txt", "x");
    }
    machine.WriteFile(program + u"\\QBMenus\\read me.txt", "x");
    main = &machine.Start();
  }

  /// The screen as if all its tabs were open at once.
  frmGameTools& Open() {
    frmGameTools& screen = machine.app.Screen<frmGameTools>();
    screen.Visible = true;
    main->Visible = true;
    for (Frame* area : {&screen.fraSound, &screen.fraMenus}) area->Visible = true;
    return screen;
  }

  void WriteDatabase(const Text& path, const std::vector<Text>& names) {
    TGLFile file(*machine.disk);
    for (const Text& name : names) file.Strings().Add(name, name + u" Data", u"sfx/x.mp3");
    file.Update(path, true);
  }

  /// Each string as "Name|Data|MediaFilename", in the order of the names; empty for no file.
  std::vector<Text> DatabaseLines(const Text& path) {
    TGLFile file(*machine.disk);
    file.SetFilename(path);
    if (machine.disk->FileExists(path)) file.Load();
    std::vector<Text> lines;
    for (const auto entry : file.Strings()) {
      lines.push_back(entry->Name + u"|" + entry->Data + u"|" + entry->MediaFilename);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
  }

  /// The messages of one kind that came since the last call, and drops the others.
  std::vector<Text> TakeMessages(BoxIcon icon) {
    std::vector<Text> messages;
    for (const TestMachine::Box& box : machine.boxes) {
      if (box.Icon == icon) messages.push_back(box.Message);
    }
    machine.boxes.clear();
    return messages;
  }

  const Text& StatusLine() const { return main->StatusBar.Panel1.Get(); }

  TestMachine machine;
  frmMain* main = nullptr;
  Text game = machine.GameFolder();
  Text program = machine.ProgramFolder();
  Text species = program + u"\\QBMenus\\Species.TGL";
  Text quickBattle = game + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL";
};

}  // namespace tarvo::test
