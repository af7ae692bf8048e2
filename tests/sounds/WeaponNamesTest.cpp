#include <gtest/gtest.h>

#include <chrono>

#include "sounds/WeaponNames.h"

namespace tarvo {
namespace {

TEST(WeaponNames, StandBehindTheTwoMarkers) {
  struct Case {
    FileText script;
    std::vector<Text> expected;
  };
  for (const Case& c : {
           Case{"Torp.SetTorpedoScript(0, \"Tactical.Projectiles.PhotonTorpedo\")\r\n"
                "P.SetFireSound(\"Galaxy Phaser\")\r\n",
                {u"Galaxy Phaser", u"PhotonTorpedo"}},
           Case{"# SetFireSound(\"A\")\nSetFireSound(\"a\") SetFireSound(\"A\")\n", {u"A", u"a"}},
           Case{"\"Tactical.Projectiles.Mod.Sub.T1\")", {u"Mod.Sub.T1"}},
           Case{"setfiresound(\"A\") FireSound(\"B\") tactical.Projectiles.C\")", {}},
           Case{"SetFireSoundxxAny\")", {u"Any"}},
           Case{"SetFireSound('A')\nSetFireSound(\"B\")", {u"A')\nSetFireSound(\"B"}},
           Case{"SetFireSound(\"\x8A\xFC\")", {u"\u0160\u00FC"}},
           Case{"SetFireSound(\"\")", {u""}},
           Case{"SetFireSound(\")SetFireSound(\"A\")", {u"A"}},
           Case{"SetFireSound\")Tactical.Projectiles.\")", {u""}},
           Case{"SetFireSound(\"A\")SetFireSound(\"B", {u"A"}},
           Case{"SetFireSound", {}},
           Case{"SetFireSoun", {}},
           Case{"Tactical.Projectiles.A", {}},
           Case{"F", {}},
           Case{"", {}},
       }) {
    EXPECT_EQ(WeaponNames(c.script), c.expected) << c.script;
  }
}

TEST(WeaponNames, LargeScriptsTakeTimeByTheirLengthAlone) {
  FileText many;
  for (int i = 0; i < 20'000; ++i) many += "SetFireSound(\"W" + std::to_string(i) + "\")\n";
  FileText open;
  for (int i = 0; i < 200'000; ++i) open += "SetFireSound(F\n";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(WeaponNames(many).size(), 20'000u);
  EXPECT_TRUE(WeaponNames(open).empty());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tarvo
