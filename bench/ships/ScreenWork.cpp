#include "ScreenWork.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

#include "ShipSet.h"
#include "console/Session.h"
#include "gametools/frmGameTools.h"
#include "platform/HostMachine.h"
#include "text/Utf8.h"

namespace tarvo::bench {

namespace {

/// Bytes of a read at a time in the desktop program.
constexpr std::uint32_t kDesktopChunk = 1024;

constexpr int kMenu = 1;

void Require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(what);
}

template <class Step>
void Timed(const char* name, Step&& step) {
  const auto began = std::chrono::steady_clock::now();
  step();
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
  std::printf("%s %.6f\n", name, took.count());
}

void RequireAllEnabled(const frmGameTools& screen) {
  Require(screen.lstEnabled.Count() == kShips, "not every ship is enabled after the check");
}

void OpenTab(frmGameTools& screen) {
  screen.RefreshShipLists();
  RequireAllEnabled(screen);
}

/// The check alone, as the first thing that reads the scripts.
void WorkOnCheck(Application& app, frmGameTools& screen) {
  screen.FileList3.SetPath(app.State.GamePath + u"\\scripts\\ships");
  for (int i = 0; i < kShips; ++i) {
    screen.lstEnabled.Add(TextFromUtf8("Ship" + std::to_string(i)));
  }
  Timed("check", [&] { screen.ScanEnabledShips(); });
  RequireAllEnabled(screen);
  Timed("check-again", [&] { screen.ScanEnabledShips(); });
}

void WorkOnTabs(Application& app, frmGameTools& screen) {
  app.State.ReadChunkSize = kDesktopChunk;
  Timed("tab", [&] { OpenTab(screen); });
  Timed("tab-again", [&] { OpenTab(screen); });
  Timed("menu", [&] { screen.lblQBMenu_Click(kMenu); });
  Require(!screen.ShipCaption(kShipsOfMenu).empty(), "a ship of the menu has no row");
  Require(screen.ShipCaption(kShipsOfMenu + 1).empty(), "the menu has a row too many");
  screen.lblQBMenu_Click(kMenu);
  Timed("menu-again", [&] { screen.lblQBMenu_Click(kMenu); });
  Timed("weapons", [&] { screen.FillSoundLists(); });
  Require(screen.lstWeapons.Count() == 700 + 300, "the weapons aren't those of the scripts");
  Timed("weapons-again", [&] { screen.FillSoundLists(); });
}

}  // namespace

void WorkOnScreen(const std::filesystem::path& game, const std::filesystem::path& program,
                  bool check) {
  const HostMachine machine = OpenHostMachine();
  SessionOptions options;
  options.Game = GamePathFromArgument(game.string());
  options.ProgramFolder = GamePathFromArgument(program.string());
  options.Quiet = true;
  Session session(
      {*machine.files, *machine.settings, *machine.registry, *machine.locale, *machine.clock},
      options, std::cout, std::cerr, [] { return std::nullopt; });
  Require(session.RequireGame(), "there is no game");
  session.PrepareProgramFolder();
  auto& screen = session.app.Screen<frmGameTools>();
  if (check) {
    WorkOnCheck(session.app, screen);
  } else {
    WorkOnTabs(session.app, screen);
  }
  Require(session.app.Failures.empty(), "a file couldn't be read");
}

}  // namespace tarvo::bench
