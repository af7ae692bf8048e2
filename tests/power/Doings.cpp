#include "PowerTesting.h"
#include "packages/PackageFormat.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

const FileText kScript = "\"Name\": \"Akira\",\"HardpointFile\": \"hull\",\r\n";

void Put(Computer& computer, const Text& below, FileTextView bytes) {
  computer.disk->Put(Computer::At(below), bytes);
}

void PutGame(Computer& computer) {
  for (const TextView file :
       {u"game\\stbc.exe", u"game\\scripts\\Custom\\FoundationConfig.py",
        u"game\\scripts\\Custom\\Autoload\\a.py", u"game\\scripts\\Custom\\Ships\\Old.py",
        u"game\\scripts\\ships\\Hardpoints\\hull.py", u"game\\sfx\\Weapons\\a.wav"}) {
    Put(computer, Text(file), "some bytes");
  }
  for (const TextView ship : {u"Akira", u"Nord", u"Old"}) {
    Put(computer, u"game\\scripts\\ships\\" + Text(ship) + u".py", kScript);
  }
  for (const TextView path : {u"Ships.TGL", u"QuickBattle\\QuickBattle.TGL"}) {
    const Text whole = u"game\\data\\TGL\\" + Text(path);
    Put(computer, whole, "");
    TGLFile file(*computer.disk);
    file.Strings().Add(u"Galaxy", u"Galaxy Class", u"g.wav");
    file.Update(Computer::At(whole), true);
  }
  Put(computer, u"installed\\Backup\\Galaxy.py", kScript);
  Put(computer, u"program\\tarvo", "program");
}

/// What is done before, by the commands themselves.
void Do(Computer& computer, const std::vector<std::string>& words) {
  if (computer.Do(words) != 0) throw std::runtime_error(words[0] + ": " + computer.Told());
}

void Nothing(Computer&) {}

void Define(Computer& computer) {
  Do(computer, {"define", "Nord", "--long-name", "USS Nord", "--hull", "1"});
}

void AddPlugins(Computer& computer) {
  for (const char* ship : {"Akira", "Nord"}) {
    Do(computer, {"ship-plugin", ship, "--menu", "Federation Ships", "--author", "Somebody"});
  }
}

void PackOther(Computer& computer) {
  Do(computer, {"pack", "Fleet", "stbc.exe"});
}

void PutPackage(Computer& computer) {
  Define(computer);
  const FileText definition = computer.disk->Bytes(Computer::At(u"program\\ShipTGLs\\Nord.TGL"));
  computer.disk->Remove(Computer::At(u"program\\ShipTGLs\\Nord.TGL"));
  Text list;
  FileText bodies;
  for (const TextView entry : {u"\\scripts\\Custom\\Ships\\Nord.py", u"\\scripts\\ships\\Nord.py",
                               u"\\data\\Models\\Ships\\Nord\\Nord.nif", u"\\sfx\\Weapons\\b.wav",
                               u"\\ShipTGLs\\Nord.TGL"}) {
    list += Text(entry) + u"\r\n";
    bodies += (IsTGLEntry(entry) ? definition : FileText(300, 'n')) + BodyEnd();
  }
  Put(computer, u"program\\Tarvos\\Nord.Tarvo", PackageHead(list, u"1/1/2026") + bodies);
}

void PutPackageAndOldFiles(Computer& computer) {
  PutPackage(computer);
  for (const TextView file : {u"scripts\\Custom\\Ships\\Nord.py", u"sfx\\Weapons\\b.wav",
                              u"data\\Models\\Ships\\Nord\\Nord.nif"}) {
    Put(computer, u"game\\" + Text(file), "old bytes");
  }
  Do(computer, {"define", "Nord", "--long-name", "Old name"});
  Do(computer, {"merge", "Nord"});
}

void DefineWithPlugin(Computer& computer) {
  Define(computer);
  Do(computer, {"ship-plugin", "Nord", "--menu", "Klingon Ships"});
}

void AddMenu(Computer& computer) {
  Do(computer, {"add-menu", "Borg"});
  for (const char* ship : {"Akira", "Nord"}) {
    Do(computer, {"ship-plugin", ship, "--menu", "Borg Ships"});
  }
}

void AddMenus(Computer& computer) {
  AddMenu(computer);
  Do(computer, {"add-menu", "Gorn"});
}

void AddCompiled(Computer& computer) {
  AddPlugins(computer);
  for (const TextView ship : {u"Akira", u"Nord"}) {
    Put(computer, u"game\\scripts\\Custom\\Ships\\" + Text(ship) + u".pyc", "compiled");
  }
}

void AddDisabled(Computer& computer) {
  AddPlugins(computer);
  Do(computer, {"disable", "Akira", "Nord"});
}

void TakeFoundation(Computer& computer) {
  computer.disk->Remove(Computer::At(u"game\\scripts\\Custom\\FoundationConfig.py"));
  for (const TextView file : {u"Foundation.py", u"AI\\FoundationAI.py", u"Custom\\more.py",
                              u"Custom\\FoundationConfig.py"}) {
    Put(computer, u"program\\Foundation\\scripts\\" + Text(file), "new script of Foundation");
  }
  Put(computer, u"game\\scripts\\Foundation.py", "old");
  Put(computer, u"game\\scripts\\Foundation.pyc", "compiled");
}

void PutOldLayout(Computer& computer) {
  for (const TextView file :
       {u"Plugins\\Custom\\Custom.py", u"Plugins\\Custom\\A.py", u"Plugins\\Custom\\B.py",
        u"Plugins\\Custom\\A.pyc", u"Plugins\\p.py", u"Plugins\\Sub\\x", u"Custom\\Ships\\B.py"}) {
    Put(computer, u"game\\scripts\\" + Text(file), "of " + Utf8FromText(file));
  }
}

void PutNewData(Computer& computer) {
  for (const char* file : {"Backup\\gone.py", "Help\\kept.html", "Help\\mine.html"}) {
    Put(computer, u"installed\\" + TextFromUtf8(file), "first version");
  }
  Do(computer, {"game"});
  Put(computer, u"program\\Help\\mine.html", "the user's own");
  computer.disk->Remove(Computer::At(u"installed\\Backup\\gone.py"));
  for (const char* file :
       {"Help\\kept.html", "Help\\mine.html", "Help\\New\\a.html", "Gfx\\New\\a.bmp"}) {
    Put(computer, u"installed\\" + TextFromUtf8(file), "of the second version");
  }
}

}  // namespace

const std::vector<Doing> kDoings = {
    {.Name = "PackNew",
     .Words = {"pack", "Fleet", "scripts", "sfx"},
     .Prepare = Define,
     .MaySpoil = true},
    {"PackOverOld", {"pack", "Fleet", "scripts", "sfx"}, PackOther},
    {.Name = "InstallNew", .Words = {"install", "Nord"}, .Prepare = PutPackage, .MaySpoil = true},
    {.Name = "InstallOverOld",
     .Words = {"install", "Nord"},
     .Prepare = PutPackageAndOldFiles,
     .MaySpoil = true},
    {"ShipPlugin", {"ship-plugin", "Akira", "--menu", "Klingon Ships"}, Nothing},
    {"ShipPluginAgain", {"ship-plugin", "Akira", "--menu", "Klingon Ships"}, AddPlugins},
    {.Name = "ShipPluginAndScript",
     .Words = {"ship-plugin", "New", "--menu", "Klingon Ships"},
     .Prepare = Nothing,
     .Status = 1},  // It warns that there is no script.
    {"SoundPlugin", {"sound-plugin", "Mine", "--sound", "a.wav,Torpedo,80"}, Nothing},
    {"Define", {"define", "Nord", "--long-name", "New name"}, Nothing},
    {"DefineAgain", {"define", "Nord", "--long-name", "New name"}, Define},
    {"Merge", {"merge", "Nord"}, DefineWithPlugin},
    {"AddFirstMenu", {"add-menu", "Borg"}, Nothing},
    {"AddSecondMenu", {"add-menu", "Gorn"}, AddMenu},
    {"DeleteLastMenu", {"delete-menu", "Borg Ships"}, AddMenu},
    {"DeleteMenu", {"delete-menu", "Borg Ships"}, AddMenus},
    {.Name = "Enable",
     .Words = {"enable", "Akira", "Nord"},
     .Prepare = AddDisabled,
     .IsKept = false},
    // Without its plug-in a compiled script is none of a ship that the program knows.
    {.Name = "Disable",
     .Words = {"disable", "Akira", "Nord"},
     .Prepare = AddCompiled,
     .IsKept = false,
     .Stays = u".pyc"},
    {.Name = "Delete",
     .Words = {"delete", "Akira", "Nord"},
     .Prepare = AddCompiled,
     .IsKept = false,
     .Stays = u".pyc"},
    {.Name = "InstallFoundation", .Words = {}, .Prepare = TakeFoundation, .MaySpoil = true},
    // The copies of an upgrade that was cut are kept by the next one, as files of the user.
    {.Name = "UpgradeOldLayout",
     .Words = {},
     .Prepare = PutOldLayout,
     .MaySpoil = true,
     .Stays = u"\\backup\\old layout\\"},
    // Nothing tells a new file that was cut short from one of the user.
    {.Name = "CopyInstalledData",
     .Words = {"game"},
     .Prepare = PutNewData,
     .MaySpoil = true,
     .Stays = u"\\new\\"},
};

MemoryDisk Before(const Doing& doing) {
  Computer computer{MemoryDisk()};
  PutGame(computer);
  Do(computer, {"game"});
  doing.Prepare(computer);
  return computer.disk->Disk();
}

}  // namespace tarvo::test
