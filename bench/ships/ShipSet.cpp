#include "ShipSet.h"

#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

namespace tarvo::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kScriptBytes = 40'000;

void WriteFile(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << bytes;
  file.close();
  if (!file) throw std::runtime_error("can't write " + path.string());
}

std::string PluginText(const std::string& ship, const std::string& menu) {
  const std::string row(87, '#');
  std::string text = row + "\r\n#  Custom Ship Plugin\r\n" + row + "\r\nimport Foundation\r\n";
  text += "import App\r\n\r\nabbrev = '" + ship + "'\r\niconName = '" + ship + "'\r\n";
  text += "longName = '" + ship + "'\r\nshipFile = '" + ship + "' \r\n";
  text += "menuGroup = '" + menu + "'\r\nplayerMenuGroup = '" + menu + "'\r\n";
  text += "species = App.SPECIES_GALAXY\r\n";
  while (text.size() < 3'000) text += row + "\r\n";
  text += "Foundation.ShipDef." + ship + ".desc = 'No Description Available'\r\n";
  return text;
}

/// The keys stand behind a head, the model-loading code fills the rest.
std::string ShipScript(const std::string& ship) {
  const std::string models = "data/Models/Ships/" + ship + "/" + ship;
  std::string text = "import App\r\n\r\ndef GetShipStats():\r\n\tkShipStats = {\r\n";
  text += "\t\t\"FilenameHigh\": \"" + models + ".nif\",\r\n";
  text += "\t\t\"FilenameMed\": \"" + models + "Med.nif\",\r\n";
  text += "\t\t\"FilenameLow\": \"" + models + "Low.nif\",\r\n";
  text += "\t\t\"Name\": \"" + ship + "\",\r\n";
  text += "\t\t\"HardpointFile\": \"" + ship + "\",\r\n";
  text += "\t\t\"Species\": 101\r\n\t}\r\n\treturn kShipStats\r\n\r\n";
  for (int i = 0; text.size() < kScriptBytes; ++i) {
    text += "\tpLODModel.AddTextureSharePath(\"data/Models/SharedTextures/Set" + std::to_string(i) +
            "\")\t# level of detail\r\n";
  }
  return text;
}

std::string PropertyBlock(const std::string& part) {
  std::string text = std::string(49, '#') + "\r\n" + part +
                     " = App.PhaserProperty_Create(\"Ventral " + part + "\")\r\n\r\n";
  for (const char* const call : {"SetMaxCondition(1000.000000)",
                                 "SetCritical(0)",
                                 "SetTargetable(1)",
                                 "SetPrimary(1)",
                                 "SetPosition(0.000000, -0.240000, 0.310000)",
                                 "SetPosition2D(64.000000, 40.000000)",
                                 "SetRepairComplexity(3.000000)",
                                 "SetDisabledPercentage(0.500000)",
                                 "SetRadius(0.250000)",
                                 "SetDumbfire(1)",
                                 "SetWeaponID(1)",
                                 "SetGroups(1)",
                                 "SetDamageRadiusFactor(0.130000)",
                                 "SetIconNum(365)",
                                 "SetIconPositionX(75.000000)",
                                 "SetIconAboveShip(1)",
                                 "SetMaxCharge(5.000000)",
                                 "SetMaxDamage(300.000000)",
                                 "SetMinFiringCharge(3.000000)",
                                 "SetNormalDischargeRate(1.000000)",
                                 "SetRechargeRate(0.080000)"}) {
    text += part + "." + call + "\r\n";
  }
  return text;
}

std::string HardpointScript(int number) {
  std::string text = "import App\r\nimport GlobalPropertyTemplates\r\n";
  for (int i = 0; text.size() < kScriptBytes; ++i) {
    const bool isTube = i % 3 == 2;
    const std::string part = (isTube ? "Torpedo" : "Phaser") + std::to_string(i);
    text += PropertyBlock(part);
    if (isTube) {
      text += part + ".SetTorpedoScript(0, \"Tactical.Projectiles.Torpedo" +
              std::to_string(number % 300) + "\")\r\n";
    } else {
      text += part + ".SetFireSound(\"Ship " + std::to_string(number % 700) + " Phaser\")\r\n";
    }
  }
  return text;
}

}  // namespace

void MakeShipSet(const fs::path& folder) {
  if (fs::exists(folder)) return;
  fs::path unfinished = folder;
  unfinished += ".part";
  fs::remove_all(unfinished);
  constexpr std::array<const char*, 5> kMenus = {"Klingon Ships", "Romulan Ships", "Ferengi Ships",
                                                 "Kessok Ships", "Other Ships"};
  static_assert(kShips == kShipsOfMenu * static_cast<int>(kMenus.size()));
  const fs::path scripts = unfinished / "scripts";
  for (int i = 0; i < kShips; ++i) {
    const std::string ship = "Ship" + std::to_string(i);
    const std::string file = ship + ".py";
    const char* const menu = kMenus[static_cast<std::size_t>(i) % kMenus.size()];
    WriteFile(scripts / "Custom" / "Ships" / file, PluginText(ship, menu));
    WriteFile(scripts / "ships" / file, ShipScript(ship));
    WriteFile(scripts / "ships" / "Hardpoints" / file, HardpointScript(i));
    for (const char* const level : {"", "Med", "Low"}) {
      WriteFile(unfinished / "data" / "Models" / "Ships" / ship / (ship + level + ".nif"), "nif");
    }
  }
  WriteFile(scripts / "Custom" / "Autoload" / "Bench_SoundPak.py", "import Foundation\r\n");
  WriteFile(unfinished / "sfx" / "Weapons" / "bench.wav", "wav");
  WriteFile(unfinished / "stbc.exe", "game");
  fs::rename(unfinished, folder);
}

}  // namespace tarvo::bench
