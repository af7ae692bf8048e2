#include "faults/Scene.h"

#include <algorithm>
#include <sstream>

#include "SampleGame.h"
#include "platform/HostMachine.h"
#include "text/RaisedError.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

constexpr const char* kFirst = "Größeres Spiel";
constexpr const char* kSecond = "Second game";

/// A ship's script, which finds nothing to complain of; in the code page of scripts.
std::string Script(const std::string& ship) {
  return "\"FilenameHigh\": \"data/Models/Ships/" + ship + ".nif\",\r\n\"Name\": \"" + ship +
         "\",\r\n\"HardpointFile\": \"nordlicht\",\r\n";
}

/// A database with two names that differ in nothing but case.
void PutFaultyDatabase(const TemporaryFolder& folder, const std::string& name) {
  const auto files = OpenFiles("");
  TGLFile database(*files);
  for (const char16_t* const string : {u"Twin", u"Uwin", u"Größe"}) {
    database.Strings().Add(string, u"text", u"");
  }
  database.Update(GamePathFromArgument(folder.Host(name)), true);
  std::string bytes = folder.Get(name);
  folder.Put(name, bytes.replace(bytes.find("Uwin"), 4, "TWIN"));
}

}  // namespace

const std::vector<const char*> kPreparations = {
    "ship-plugin|Größe|--menu|Federation Ships",
    "define|Nordlicht|--long-name|USS Nordlicht|--weapons|4 Phaser",
    "define|Größe|--long-name|USS Größe",
    "pack|Nordlicht Überflug|scripts/Ships/Nordlicht.py|data/Models/ships/Nordlicht",
    "pack|Größe|scripts/Ships/Größe.py|data/Models/ships/Größe.nif|ShipTGLs/Größe.TGL",
};

const std::vector<Command> kCommands = {
    {"pack", "pack|Neue Übersicht|scripts/Ships|data/Models/ships|ShipTGLs/Nordlicht.TGL"},
    {"pack-over", "pack|Größe|scripts/Ships/Nordlicht.py|data/Models/ships/Nordlicht"},
    {"install", "install|Größe", kSecond},
    {"install-over", "--all|install|Nordlicht Überflug", kSecond},
    {"ship-plugin", "ship-plugin|Zweiling|--menu|Klingon Ships|--author|Jörg"},
    {"ship-script", "--yes|ship-plugin|Neuling|--menu|Other Ships"},
    {"sound-plugin", "sound-plugin|Nord Klang|--sound|Nordlicht Phaser.wav,Phaser:Loop,85"},
    {"define", "define|Neuling|--long-name|USS Neuling"},
    {"define-again", "define|Nordlicht|--long-name|USS Nordlicht II"},
    {"merge", "merge|Nordlicht"},
    {"merge-again",
     "merge|Nordlicht",
     kFirst,
     {"merge|Nordlicht", "define|Nordlicht|--long-name|USS Nordlicht II"}},
    {"merge-all", "merge|--all", ""},
    {"add-menu", "add-menu|Borg"},
    {"add-menu-second", "add-menu|Größere", kFirst, {"add-menu|Borg"}},
    {"delete-menu",
     "delete-menu|Borg Ships",
     kFirst,
     {"add-menu|Borg", "add-menu|Größere", "ship-plugin|Größe|--menu|Borg Ships"}},
    {"delete-menu-last", "delete-menu|Borg Ships", kFirst, {"add-menu|Borg"}},
    {"disable", "disable|Nordlicht"},
    {"enable", "enable|Größe", kFirst, {"disable|Größe"}},
    {"delete", "--yes|delete|Nordlicht|Größe"},
    {"tgl-rewrite", "tgl|rewrite|Second game/data/TGL/Ships.tgl|Programm/ShipTGLs/Größe.TGL"},
    {"tgl-repair", "tgl|repair|Programm/Faulty.TGL|Programm/Repaired.TGL"},
};

Words ToolLine(const std::string& tool, const std::string& game, const std::string& line) {
  Words words = {tool, "--program", "Programm"};
  if (!game.empty()) words.insert(words.end(), {"--game", game});
  std::istringstream rest(line);
  for (std::string word; std::getline(rest, word, '|');) words.push_back(word);
  return words;
}

Words ToolEnvironment(const std::string& scene) {
  return {"HOME=" + scene + "/home",
          "XDG_STATE_HOME=" + scene + "/state",
          "XDG_CONFIG_HOME=" + scene + "/config",
          "XDG_DATA_HOME=" + scene + "/data",
          "LC_ALL=C.UTF-8",
          "TZ=UTC"};
}

void MakeScene(const TemporaryFolder& folder) {
  const std::filesystem::path scene = folder.Path("scene");
  std::filesystem::create_directories(scene / "home");
  WriteSampleGame(scene / kFirst);
  WriteEmptyGame(scene / kSecond);
  const std::string first = std::string("scene/") + kFirst;
  const std::string second = std::string("scene/") + kSecond;
  folder.Put(first + "/scripts/Ships/Größe.py", Script("Gr\xF6\xDF"
                                                       "e"));
  folder.Put(first + "/scripts/Ships/Zweiling.py", Script("Zweiling"));
  folder.Put(first + "/scripts/Custom/ships/Nordlicht.pyc", "compiled");
  folder.Put(first + "/data/Models/ships/Größe.nif", std::string(150'000, 'G'));
  folder.Put(first + "/data/Models/ships/Neuling.nif", "model");
  folder.Put(second + "/scripts/ships/Nordlicht.py", "another script");
  folder.Put(second + "/data/Models/Ships/Nordlicht/Nordlicht.nif", "another model");
  folder.Put("scene/Programm/Backup/Galaxy.py", Script("Galaxy"));
  PutFaultyDatabase(folder, "scene/Programm/Faulty.TGL");
  std::filesystem::permissions(scene / kFirst / "data/TGL/Ships.tgl", std::filesystem::perms(0444));
  std::string path = "Z:" + folder.Host(first);
  std::ranges::replace(path, '/', '\\');
  folder.Put("scene/config/tarvo-packager/settings.ini",
             "[Tarvo Packager/Settings]\nGamePath = " + path + "\n");
}

bool IsDatabaseInOrder(const std::string& path) {
  const auto files = OpenFiles("");
  const TemporaryFolder folder;
  TGLFile database(*files);
  try {
    database.SetFilename(GamePathFromArgument(path));
    database.Load();
    database.Update(folder.Game(u"copy"), true);
  } catch (const RaisedError&) {
    return false;
  }
  return folder.Get("copy") == BytesOf(path);
}

}  // namespace tarvo::test
