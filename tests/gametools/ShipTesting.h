#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"

namespace tarvo::test {

/// A game with ships, and the Game Tools screen on it.
class ShipScreen : public testing::Test {
 protected:
  void SetUp() override {
    machine.disk->MakeFolder(game + u"\\Scripts");
    machine.disk->MakeFolder(game + u"\\Scripts\\custom");
    machine.disk->MakeFolder(game + u"\\Scripts\\custom\\ships");
    machine.WriteFile(game + u"\\Scripts\\Ships\\hardpoints\\hull.py", "hardpoints");
    machine.WriteFile(game + u"\\sfx\\Weapons\\a.wav", "wave");
    std::ifstream pattern(TARVO_SOURCE "/data/Backup/Galaxy.py", std::ios::binary);
    machine.WriteFile(machine.ProgramFolder() + u"\\Backup\\Galaxy.py",
                      FileText(std::istreambuf_iterator<char>(pattern), {}));
    machine.Start();
  }

  /// The screen with its lists filled.
  frmGameTools& Open() {
    frmGameTools& screen = machine.app.Screen<frmGameTools>();
    screen.Visible = true;
    screen.ListShips();
    machine.app.State.SoundFX = true;
    machine.sound.Orders.clear();
    return screen;
  }

  Text Plugin(TextView file) const { return game + u"\\scripts\\Custom\\Ships\\" + Text(file); }
  Text Script(TextView file) const { return game + u"\\scripts\\ships\\" + Text(file); }

  /// A plug-in and a script that names nothing but files that are there.
  void AddShip(TextView name, FileTextView menu = "Fed Ships", TextView ending = u".py") {
    machine.WriteFile(Plugin(Text(name) + Text(ending)), PluginBytes(name, menu));
    machine.WriteFile(Script(Text(name) + u".py"), "\"Name\": \"../Custom/Ships/../../ships/" +
                                                       FileText(name.begin(), name.end()) +
                                                       "\",\n\"HardpointFile\": \"hull\",\n");
  }

  static FileText PluginBytes(TextView name, FileTextView menu) {
    return "# " + FileText(name.begin(), name.end()) + "\r\nmenuGroup = '" + FileText(menu) +
           "'\r\n";
  }

  static std::vector<Text> Items(const ListBox& list) {
    std::vector<Text> items;
    for (std::size_t row = 0; row < list.Count(); ++row) items.push_back(list.Item(row));
    return items;
  }

  static void Select(ListBox& list, TextView item) {
    for (std::size_t row = 0; row < list.Count(); ++row) {
      if (list.Item(row) == item) list.SetSelected(row, true);
    }
  }

  /// The names in the folder of the plug-ins.
  std::vector<Text> PluginFiles() { return machine.disk->FileNames(Plugin(u"")); }

  std::vector<Text> Messages() const {
    std::vector<Text> messages;
    for (const auto& box : machine.boxes) messages.push_back(box.Message);
    return messages;
  }

  TestMachine machine;
  Text game = machine.GameFolder();
};

using Texts = std::vector<Text>;

}  // namespace tarvo::test
