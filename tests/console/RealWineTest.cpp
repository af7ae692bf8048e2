#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "console/ConsoleTesting.h"
#include "platform/posix/WinePrefixes.h"
#include "platform/posix/WineRegistry.h"
#include "support/RunProgram.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

const std::string kKey = "HKLM\\Software\\Activision\\Star Trek: Bridge Commander\\";
const std::string kBridge =
    "Spiele\\Br\xC3\xBC"
    "cken\xC3\xB6"
    "ffizier";

/// A program of Wine, in the PATH or where Debian keeps it; empty when there is none.
std::string FindProgram(std::initializer_list<const char*> names) {
  const char* const path = std::getenv("PATH");
  std::istringstream folders((path ? path : "") + std::string(":/usr/lib/wine"));
  for (std::string folder; std::getline(folders, folder, ':');) {
    for (const char* name : names) {
      const std::string program = folder + "/" + name;
      if (access(program.c_str(), X_OK) == 0) return program;
    }
  }
  return {};
}

/// A prefix that Wine itself makes, without a screen.
class RealWine : public Console {
 protected:
  void SetUp() override {
    if (wine.empty() || server.empty()) GTEST_SKIP() << "Wine isn't installed";
    Console::SetUp();
    fs::create_directory(folder.Host("home"));
    for (const std::string& name : {std::string("Spiele/Br\xC3\xBC"
                                                "cken\xC3\xB6"
                                                "ffizier"),
                                    std::string("Second"), std::string("Third")}) {
      fs::create_directories(prefix + "/drive_c/" + name);
    }
  }

  void TearDown() override {
    if (!wine.empty() && !server.empty()) StopServer();
  }

  /// Runs a program in an environment of the test's own.
  Ran RunIn(const std::string& winePrefix, const std::vector<std::string>& words) {
    std::vector<std::string> all = {"env",
                                    "-i",
                                    "PATH=" + std::string(std::getenv("PATH")),
                                    "HOME=" + folder.Host("home"),
                                    "XDG_CONFIG_HOME=" + folder.Host("config"),
                                    "LC_ALL=C.UTF-8",
                                    "WINEDEBUG=-all",
                                    "WINEDLLOVERRIDES=mscoree=;mshtml="};
    if (!winePrefix.empty()) all.push_back("WINEPREFIX=" + winePrefix);
    all.insert(all.end(), words.begin(), words.end());
    return RunProgram(std::move(all));
  }

  /// The server writes the registry to its file as it ends.
  void StopServer() {
    for (const char* order : {"-k", "-w"}) RunIn(prefix, {server, order});
  }

  void Register(const std::string& version, const std::string& view, const std::string& game) {
    const Ran ran = RunIn(prefix, {wine, "reg", "add", kKey + version, "/v", "INSTALLPATH", "/d",
                                   "C:\\" + game, "/f", "/reg:" + view});
    ASSERT_EQ(ran.Status, 0) << "reg add failed";
    StopServer();
  }

  /// The game that the registry of the prefix names.
  Text Found() {
    WineRegistry wineRegistry(UsualWinePrefixes({prefix, {}}));
    std::ostringstream ignored;
    Session session({files, settings, wineRegistry, locale, clock}, {}, ignored, ignored, nullptr);
    session.RequireGame();
    return session.app.State.GamePath;
  }

  Text InPrefix(const Text& place, const std::string& game) {
    return folder.Game(place + u"\\drive_c\\") + TextFromUtf8(game);
  }

  const std::string wine = FindProgram({"wine64", "wine"});
  const std::string server = FindProgram({"wineserver"});
  const std::string prefix = folder.Host("prefix");
};

TEST_F(RealWine, GameIsFoundInThePrefixesThatWineMakes) {
  // Each key comes before those that were written before it.
  const struct {
    const char* Version;
    const char* View;
    std::string Game;
  } keys[] = {{"V1.1", "64", kBridge},
              {"V1.1", "32", "Second"},
              {"V1.0", "64", "Third"},
              {"V1.0", "32", kBridge}};
  for (const auto& [version, view, game] : keys) {
    ASSERT_NO_FATAL_FAILURE(Register(version, view, game));
    EXPECT_EQ(Found(), InPrefix(u"prefix", game)) << version << ' ' << view;
  }

  const struct {
    const char* Place;
    std::string WinePrefix;
    bool Found;
  } places[] = {{"prefix", prefix, true},
                {"home/.wine", "", true},
                {"home/Games/bridge commander", "", true},
                {"home/unusual", "", false}};
  std::string now = "prefix";
  for (const auto& [place, winePrefix, isFound] : places) {
    fs::create_directories(fs::path(folder.Host(place)).parent_path());
    fs::rename(folder.Host(now), folder.Host(place));
    now = place;
    const Ran ran = RunIn(winePrefix, {TARVO_TOOL, "game"});
    EXPECT_EQ(ran.Status, isFound ? 0 : 1) << place;
    const std::string expected =
        isFound ? Utf8FromText(GamePathFromArgument(folder.Host(place)) + u"\\drive_c\\") + kBridge
                : "";
    EXPECT_EQ(ran.Output.substr(0, expected.size()), expected) << place;
    EXPECT_EQ(ran.Output.empty(), !isFound) << ran.Output;
  }
  fs::rename(folder.Host(now), prefix);  // Where its server is to be stopped.
}

}  // namespace
}  // namespace tarvo::test
