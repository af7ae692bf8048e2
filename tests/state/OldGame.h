#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "machine/TestMachine.h"
#include "state/StartUp.h"
#include "text/Utf8.h"

namespace tarvo::test {

namespace fs = std::filesystem;

using Names = std::vector<Text>;

inline const TestMachine::Box kUpgraded{u"Tarvo BETA v4.0 has upgraded your files!",
                                        BoxIcon::Plain};

/// A game that stands already, and gets the old layout afterwards.
class OldGame {
 public:
  OldGame() {
    machine.Start();
    for (const char* folder : {"Ships", "AutoLoad"}) {
      fs::create_directories(machine.folder.Host("game/scripts/Custom/") + folder);
    }
  }

  void Put(const std::string& path, const std::string& bytes) {
    machine.folder.Put("game/scripts/" + path, bytes);
  }

  /// Something of each kind that the old folders may hold, each with bytes of its own.
  void PutEverything() {
    for (const char* path :
         {"plugins/Custom/Custom.py", "plugins/Custom/Akira.py", "plugins/Custom/Borg.PY",
          "plugins/Custom/Akira.pyc", "plugins/Custom/.hidden", "plugins/Custom/Sub/deep/x.py",
          "plugins/Effects.py", "plugins/Same.py", "plugins/notes.txt", "plugins/Other/y.py",
          "Custom/Ships/Borg.py", "Custom/Ships/Custom.py", "Custom/AutoLoad/Effects.py"}) {
      Put(path, path);
    }
    Put("Custom/AutoLoad/Same.py", "plugins/Same.py");
    fs::create_directories(machine.folder.Host("game/scripts/plugins/empty"));
    for (const char* path : {"plugins/Custom/Akira.py", "Custom/AutoLoad/Effects.py"}) {
      fs::permissions(machine.folder.Host("game/scripts/") + path, fs::perms::owner_read);
    }
  }

  void PutMany(int count) {
    Put("plugins/Custom/Custom.py", "marker");
    for (int i = 0; i < count; ++i) {
      const std::string name = "Ship" + std::to_string(i);
      Put("plugins/Custom/" + name + ".py", name);
      if (i % 5 == 0) Put("plugins/" + name + "_SoundPak.py", "sound of " + name);
      if (i % 7 == 0) Put("plugins/Custom/" + name + ".pyc", "compiled " + name);
      if (i % 50 == 0) Put("Custom/Ships/" + name + ".py", "newer " + name);
    }
  }

  void Run() { StartUpSequence(machine.app); }

  Text Status() { return machine.Start().StatusBar.Panel1.Get(); }

  Names Scripts() { return machine.FilesBelow(machine.GameFolder() + u"\\scripts"); }

  Names Kept() { return machine.disk->FolderExists(kept) ? machine.FilesBelow(kept) : Names(); }

  FileText KeptBytes(TextView path) { return machine.Bytes(kept + Text(path)); }

  bool HasOldFolders() { return machine.disk->FolderExists(machine.GameFolder() + kOld); }

  /// The bytes of all whole files in the game's scripts and among the kept ones.
  std::set<FileText> AllBytes() {
    std::set<FileText> all;
    for (const std::string& folder :
         {machine.folder.Host("game/scripts"), machine.folder.Host("program/Backup/Old layout")}) {
      if (!fs::exists(folder)) continue;
      for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool isTemporary = entry.path().filename().string().starts_with(".tarvo-");
        if (!entry.is_regular_file() || isTemporary) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        all.emplace(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
      }
    }
    return all;
  }

  TestMachine machine;
  const Text kept = machine.ProgramFolder() + u"\\Backup\\Old layout";
  const Text kOld = u"\\scripts\\Plugins";
};

}  // namespace tarvo::test
