#pragma once

#include <gtest/gtest.h>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"

namespace tarvo::test {

/// The Game Tools screen on a game with the folders that it looks into.
class GameToolsTesting : public testing::Test {
 protected:
  void SetUp() override {
    for (const TextView folder : {u"\\scripts\\ships\\Hardpoints", u"\\scripts\\Custom\\Ships",
                                  u"\\scripts\\Custom\\Autoload", u"\\sfx\\Weapons"}) {
      machine.WriteFile(game + Text(folder) + u"\\keep.txt", "x");
    }
    machine.Start();
    machine.app.State.SoundFX = true;
  }

  frmGameTools& Open() {
    frmGameTools& screen = machine.app.Screen<frmGameTools>();
    screen.Visible = true;
    machine.sound.Orders.clear();
    return screen;
  }

  const Text& StatusLine() { return machine.Start().StatusBar.Panel1; }

  /// The sounds since the last call, as "NAME FLAGS".
  std::vector<std::pair<Text, unsigned>> TakeSounds() {
    std::vector<std::pair<Text, unsigned>> sounds;
    for (const auto& order : machine.sound.Orders) {
      sounds.emplace_back(order.File.substr(order.File.rfind(u'\\') + 1), order.Flags);
    }
    machine.sound.Orders.clear();
    return sounds;
  }

  TestMachine machine;
  Text game = machine.GameFolder();
};

using Sounds = std::vector<std::pair<Text, unsigned>>;

}  // namespace tarvo::test
