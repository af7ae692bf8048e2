#include "SampleGame.h"

#include <cstdint>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/HostMachine.h"
#include "tgl/TGLFile.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgram =
    "This file stands in for the game's program, so that the folder is taken for a game.\r\n";

constexpr std::string_view kFoundationConfig =
    "# Foundation's settings would stand here; the sample has only the file.\r\n";

constexpr std::string_view kShipScript =
    "import App\r\n"
    "\r\n"
    "def LoadModel(bPreLoad = 0):\r\n"
    "\tpath = \"data/Models/Ships/Nordlicht/\"\r\n"
    "\treturn path + \"Nordlicht.nif\"\r\n"
    "\r\n"
    "def GetShipStats():\r\n"
    "\treturn {\r\n"
    "\t\t\"FilenameHigh\": \"data/Models/Ships/Nordlicht/Nordlicht.nif\",\r\n"
    "\t\t\"Name\": \"Nordlicht\",\r\n"
    "\t\t\"HardpointFile\": \"nordlicht\",\r\n"
    "\t}\r\n";

constexpr std::string_view kHardpointScript =
    "import App\r\n"
    "import GlobalPropertyTemplates\r\n"
    "\r\n"
    "# The weapons of the Nordlicht.\r\n"
    "Phaser1 = App.PhaserProperty_Create(\"Forward Phaser\")\r\n"
    "Phaser1.SetFireSound(\"Nordlicht Phaser\")\r\n"
    "App.g_kModelPropertyManager.RegisterLocalTemplate(Phaser1)\r\n";

constexpr std::string_view kShipPlugin =
    "# The sample's add-on ship, as Foundation would load it.\r\n"
    "import App\r\n"
    "import Foundation\r\n"
    "abbrev = 'Nordlicht'\r\n"
    "iconName = 'Nordlicht'\r\n"
    "longName = 'Nordlicht'\r\n"
    "shipFile = 'Nordlicht'\r\n"
    "menuGroup = 'Other Ships'\r\n"
    "playerMenuGroup = 'Other Ships'\r\n"
    "species = App.SPECIES_GALAXY\r\n"
    "credits = {\r\n"
    "\t'modName': 'Nordlicht',\r\n"
    "\t'author': '',\r\n"
    "\t'version': '1.0',\r\n"
    "\t'sources': [ 'http://' ],\r\n"
    "\t'comments': ''\r\n"
    "}\r\n"
    "Foundation.ShipDef.Nordlicht = Foundation.ShipDef(abbrev, species, { 'name': longName, "
    "'iconName': iconName, 'shipFile': shipFile })\r\n"
    "# Uncomment these if you have TGL                                                     #\r\n"
    "# Foundation.ShipDef.Nordlicht.hasTGLName = 1\r\n"
    "# Foundation.ShipDef.Nordlicht.hasTGLDesc = 1\r\n"
    "Foundation.ShipDef.Nordlicht.desc = 'No Description Available'\r\n"
    "if menuGroup:           Foundation.ShipDef.Nordlicht.RegisterQBShipMenu(menuGroup)\r\n"
    "if playerMenuGroup:     Foundation.ShipDef.Nordlicht.RegisterQBPlayerShipMenu(playerMenuGroup)"
    "\r\n";

constexpr std::string_view kAutoload = "# Foundation loads each script of this folder.\r\n";

constexpr std::string_view kReadMe =
    "The Nordlicht is a ship of nobody's fleet.\r\n"
    "It belongs to the sample game, and its model and textures show nothing.";

// Paths are UTF-8 and their letter case is as mixed as in games that have seen many add-ons.
struct TextFile {
  std::string_view Path;
  std::string_view Body;
};

constexpr TextFile kTexts[] = {
    {"stbc.exe", kProgram},
    {"scripts/Custom/FoundationConfig.py", kFoundationConfig},
    {"scripts/Custom/AutoLoad/000-Sample.py", kAutoload},
    {"scripts/Custom/ships/Nordlicht.py", kShipPlugin},
    {"scripts/Ships/Nordlicht.py", kShipScript},
    {"scripts/Ships/HardPoints/nordlicht.py", kHardpointScript},
    {"data/Models/ships/Read Me.txt", kReadMe},
};

// Files that hold any bytes, as models, textures and sounds do.
struct BinaryFile {
  std::string_view Path;
  std::string_view Head;
  std::size_t Size;
};

constexpr BinaryFile kBinaries[] = {
    {"data/Models/ships/Nordlicht/Nordlicht.nif", "Sample model\n", 90'000},
    {"data/Models/ships/Nordlicht/Captain's Yacht.nif", "Sample model\n", 20'011},
    {"data/Models/ships/Nordlicht/Rumpf groß.tga", "", 66'000},
    {"data/Models/ships/Nordlicht/Übersicht vorn.tga", "", 33'000},
    {"data/Models/ships/Nordlicht/nordlicht_glow.TGA", "", 4'099},
    {"data/Icons/Ships/Nordlicht.tga", "", 9'000},
    {"sfx/WEAPONS/Nordlicht Phaser.wav", "RIFF", 12'000},
};

constexpr std::string_view kGameFolders[] = {
    "data/Icons/Ships",    "data/Models/Ships", "data/TGL/QuickBattle",     "scripts/Custom",
    "scripts/QuickBattle", "sfx/Weapons",       "scripts/ships/Hardpoints",
};

// The text databases, in the letter case of the game's own disc.
constexpr std::string_view kDatabases[] = {
    "data/TGL/Ships.tgl",
    "data/TGL/QuickBattle/QuickBattle.TGL",
};

fs::path FromUtf8(std::string_view path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

/// `head`, then all 256 byte values in order, then bytes that look like chance.
std::string Bytes(std::string_view head, std::size_t size) {
  std::string bytes(head);
  for (int value = 0; value < 256; ++value) bytes.push_back(static_cast<char>(value));
  std::uint32_t seed = static_cast<std::uint32_t>(size);
  while (bytes.size() < size) {
    seed = seed * 1664525 + 1013904223;
    bytes.push_back(static_cast<char>(seed >> 24));
  }
  return bytes;
}

void Write(const fs::path& path, std::string_view body) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(body.data(), static_cast<std::streamsize>(body.size()));
  file.close();
  if (!file) throw std::runtime_error("can't write " + path.string());
}

void WriteDatabases(const fs::path& folder) {
  const std::unique_ptr<Files> files = OpenFiles("");
  TGLFile database(*files);
  database.Strings().Add(u"Galaxy", u"Galaxy Class", u"Galaxy.wav");
  database.Strings().Add(u"Galaxy Description", u"Description: A ship of the game's own.",
                         u"GalaxyDescription.wav");
  for (const std::string_view name : kDatabases) {
    const fs::path path = fs::absolute(folder / FromUtf8(name));
    fs::create_directories(path.parent_path());
    database.Update(GamePathFromArgument(path.string()), true);
  }
}

}  // namespace

void WriteSampleGame(const fs::path& folder) {
  for (const TextFile& file : kTexts) Write(folder / FromUtf8(file.Path), file.Body);
  for (const BinaryFile& file : kBinaries) {
    Write(folder / FromUtf8(file.Path), Bytes(file.Head, file.Size));
  }
  WriteDatabases(folder);
}

void WriteEmptyGame(const fs::path& folder) {
  Write(folder / "stbc.exe", kProgram);
  Write(folder / "scripts/Custom/FoundationConfig.py", kFoundationConfig);
  for (const std::string_view name : kGameFolders) fs::create_directories(folder / FromUtf8(name));
  WriteDatabases(folder);
}

}  // namespace tarvo
