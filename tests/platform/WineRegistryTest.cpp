#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/WinePrefixes.h"
#include "platform/posix/WineRegistry.h"
#include "support/CodeOf.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

constexpr TextView kKey = u"SOFTWARE\\Maker\\Game";
const std::string kPlain = "Software\\\\Maker\\\\Game";
const std::string kWow = "Software\\\\Wow6432Node\\\\Maker\\\\Game";

class WineRegistryTest : public testing::Test {
 protected:
  /// A prefix with drives C: and Z:.
  std::string Prefix(const std::string& name) {
    fs::create_directories(folder.Host(name + "/dosdevices"));
    fs::create_directories(folder.Host(name + "/drive_c"));
    fs::create_symlink("../drive_c", folder.Host(name + "/dosdevices/c:"));
    fs::create_symlink("/", folder.Host(name + "/dosdevices/z:"));
    texts[name] = "WINE REGISTRY Version 2\n\n";
    return folder.Host(name);
  }

  void Add(const std::string& prefix, const std::string& key, const std::string& line) {
    texts[prefix] += "[" + key + "] 1\n" + line + "\n\n";
    folder.Put(prefix + "/system.reg", texts[prefix]);
  }

  Text Query(std::vector<std::string> prefixes, TextView name) {
    const auto value = WineRegistry(std::move(prefixes)).OpenKey(kLocalMachine, kKey)->Query(name);
    return value ? value->String : u"nothing";
  }

  TemporaryFolder folder;
  std::map<std::string, std::string> texts;
};

TEST_F(WineRegistryTest, LeadsPathsThroughTheDrivesOfThePrefix) {
  const std::string prefix = Prefix("p");
  folder.Put("p/drive_c/games/BC/stbc.exe", "");
  folder.Put("other/\xC3\xA4/x", "");
  fs::create_symlink(folder.Host("other"), folder.Host("p/dosdevices/d:"));
  fs::create_symlink("/dev/null", folder.Host("p/dosdevices/e:"));
  const std::string outside = folder.Host("other").substr(1);
  const struct {
    std::string Value;
    Text Path;
  } cases[] = {
      {R"(C:\\Games\\bc)", folder.Game(u"p\\drive_c\\games\\BC")},
      {R"(c:\\GAMES\\BC\\)", folder.Game(u"p\\drive_c\\games\\BC")},
      {R"(C:\\)", folder.Game(u"p\\drive_c")},
      {R"(C:/games/bc)", folder.Game(u"p\\drive_c\\games\\BC")},
      {R"(D:\\\xc4)", folder.Game(u"other\\ä")},
      // What doesn't exist stays as spelled, as far as the prefix knows the way.
      {R"(C:\\games\\None\\)", folder.Game(u"p\\drive_c\\games\\None")},
      {R"(E:\\x\\)", u"E:\\x"},
      {R"(Q:\\x)", u"Q:\\x"},
      {"V1.1", u"V1.1"},
      {"C:", u"C:"},
  };
  for (const auto& [value, path] : cases) {
    texts["p"] = "WINE REGISTRY Version 2\n\n";
    Add("p", kPlain, "\"Path\"=\"" + value + "\"");
    EXPECT_EQ(Query({prefix}, u"PATH"), path) << value;
  }
}

TEST_F(WineRegistryTest, PrefersTheSectionOf32BitProgramsThenThePlainOne) {
  const std::string prefix = Prefix("p");
  Add("p", kPlain, "\"Both\"=\"plain\"\n\"Plain\"=\"plain\"");
  Add("p", kWow, "\"Both\"=\"wow\"");
  EXPECT_EQ(Query({prefix}, u"both"), u"wow");
  EXPECT_EQ(Query({prefix}, u"plain"), u"plain");
  EXPECT_EQ(Query({prefix}, u"none"), u"nothing");
}

TEST_F(WineRegistryTest, TakesTheFirstPrefixWhoseFolderExists) {
  const std::string first = Prefix("first");
  const std::string second = Prefix("second");
  const std::string third = Prefix("third");
  Prefix("unreadable");
  fs::create_directories(folder.Host("unreadable/system.reg"));
  folder.Put("second/drive_c/BC/x", "");
  folder.Put("third/drive_c/BC/x", "");
  for (const char* name : {"first", "second", "third"}) {
    Add(name, kWow,
        "\"Path\"=\"C:\\\\BC\"\n\"Gone\"=str(2):\"C:\\\\Gone\"\n\"Word\"=\"" + std::string(name) +
            "\"");
  }
  const std::vector<std::string> all = {folder.Host("missing"), folder.Host("unreadable"), first,
                                        second, third};
  EXPECT_EQ(Query(all, u"Path"), folder.Game(u"second\\drive_c\\BC"));
  EXPECT_EQ(Query({third, second}, u"Path"), folder.Game(u"third\\drive_c\\BC"));
  EXPECT_EQ(Query(all, u"Gone"), folder.Game(u"first\\drive_c\\Gone"));
  EXPECT_EQ(Query(all, u"Word"), u"first");
  EXPECT_EQ(WineRegistry(all).OpenKey(kLocalMachine, kKey)->Query(u"Gone")->Type, 2u);
  std::vector<Text> paths;
  WineRegistry registry(all);
  for (const auto& value : registry.OpenKey(kLocalMachine, kKey)->QueryAll(u"Path")) {
    paths.push_back(value.String);
  }
  EXPECT_EQ(paths, (std::vector<Text>{folder.Game(u"second\\drive_c\\BC"),
                                      folder.Game(u"third\\drive_c\\BC")}));
  EXPECT_EQ(registry.ProgramDrives().back(), folder.Game(u"third\\drive_c"));
}

TEST_F(WineRegistryTest, RefusesKeysThatNoPrefixHas) {
  const std::string prefix = Prefix("p");
  Add("p", kPlain, "\"n\"=\"x\"");
  WineRegistry registry({prefix});
  EXPECT_EQ(CodeOf([&] { registry.OpenKey(0x80000001, kKey); }), ENOENT);
  try {
    registry.OpenKey(kLocalMachine, u"Software\\Maker\\None");
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.Operation, u"open");
    EXPECT_EQ(error.Path, u"HKEY_LOCAL_MACHINE\\Software\\Maker\\None");
    EXPECT_EQ(error.Code, ENOENT);
  }
}

TEST(WinePrefixes, AreThoseOfTheUserThenThoseOfFrontEnds) {
  const TemporaryFolder home;
  for (const char* prefix :
       {".wine", "own [1]", "Games/b", "Games/A", ".local/share/bottles/bottles/bc",
        "Games/Heroic/Prefixes/default/BC/pfx", ".local/share/Steam/steamapps/compatdata/7/pfx"}) {
    home.Put(std::string(prefix) + "/system.reg", "");
  }
  fs::create_directories(home.Host("Games/no prefix"));
  fs::create_directories(home.Host(".steam"));
  fs::create_symlink(home.Host(".local/share/Steam"), home.Host(".steam/steam"));
  std::vector<std::string> prefixes = UsualWinePrefixes({home.Host("own [1]"), home.Host()});
  for (std::string& prefix : prefixes) prefix.erase(0, home.Host().size() + 1);
  EXPECT_EQ(prefixes, (std::vector<std::string>{"own [1]", ".wine", "Games/A", "Games/b",
                                                ".local/share/bottles/bottles/bc",
                                                "Games/Heroic/Prefixes/default/BC/pfx",
                                                ".steam/steam/steamapps/compatdata/7/pfx"}));
  EXPECT_EQ(UsualWinePrefixes({home.Host(".wine"), ""}), std::vector{home.Host(".wine")});
}

}  // namespace
}  // namespace tarvo::test
