#include <gtest/gtest.h>

#include "support/PowerCutFiles.h"

namespace tarvo::test {
namespace {

const Text kA = u"Z:\\folder\\a";
const Text kB = u"Z:\\folder\\b";
const FileText kNew(100, 'n');

void Write(Files& files, const Text& path, NewFile newFile) {
  const auto file = files.Replace(path, newFile);
  file->Write(kNew);
  file->Commit();
}

TEST(PowerCutFiles, FindsWhatThePromisesLeaveOpen) {
  using All = std::set<std::string>;
  struct Case {
    const char* what;
    bool hasOld;
    int cutAt;  ///< 0 for after it all.
    void (*work)(Files& files);
    All found;  ///< All that may be found of `a` and `b`.
  };
  const auto later = [](Files& files) { Write(files, kA, NewFile::Later); };
  const auto onDisk = [](Files& files) { Write(files, kA, NewFile::OnDisk); };
  const auto renames = [](Files& files) { files.Rename(kA, kB); };
  for (const Case& c : {
           Case{"new", false, 0, later, {"none none", "new none", "spoilt none"}},
           Case{"new, waited for", false, 0, onDisk, {"new none"}},
           Case{"new, cut while it is waited for", false, 2, onDisk, {"none none", "new none"}},
           Case{"old", true, 0, later, {"old none", "new none"}},
           Case{"old, waited for", true, 0, onDisk, {"new none"}},
           Case{"old, cut while it is waited for", true, 2, onDisk, {"old none", "new none"}},
           Case{"cut before", true, 1, onDisk, {"old none"}},
           Case{"gone", true, 0, [](Files& files) { files.Remove(kA); }, {"old none", "none none"}},
           Case{"renamed", true, 0, renames, {"old none", "none old"}},
           Case{"in no order",
                true,
                0,
                [](Files& files) {
                  files.Remove(kA);
                  files.MakeEmptyFile(kB);
                },
                {"old none", "none none", "old spoilt", "none spoilt"}},
           Case{"a name is waited for along with what was done to it",
                true,
                0,
                [](Files& files) {
                  files.Rename(kA, kB);
                  Write(files, kA, NewFile::OnDisk);
                },
                {"new old"}},
           Case{"synced",
                true,
                0,
                [](Files& files) {
                  Write(files, kB, NewFile::Later);
                  files.Remove(kA);
                  files.Sync(u"Z:\\");
                },
                {"none new"}},
       }) {
    MemoryFiles disk;
    disk.Put(kA, "old");
    if (!c.hasOld) disk.Remove(kA);
    PowerCutFiles files(disk.Disk());
    if (c.cutAt != 0) files.CutAt(c.cutAt);
    try {
      c.work(files);
    } catch (const PowerCut&) {
      EXPECT_NE(c.cutAt, 0);
    }
    All found;
    for (unsigned seed = 0; seed < 200; ++seed) {
      const MemoryFiles left(std::make_shared<MemoryDisk>(files.AfterPowerCut(seed)));
      const auto name = [&](const Text& path) {
        const FileText bytes = left.Bytes(path);
        return bytes == "(missing)" ? "none"
               : bytes == "old"     ? "old"
               : bytes == kNew      ? "new"
                                    : "spoilt";
      };
      found.insert(name(kA) + std::string(" ") + name(kB));
    }
    EXPECT_EQ(found, c.found) << c.what;
  }
}

TEST(PowerCutFiles, NewFoldersComeWithTheFileThatIsWaitedFor) {
  PowerCutFiles files{MemoryDisk()};
  files.MakeFolder(u"Z:\\folder");
  Write(files, kB, NewFile::Later);
  Write(files, kA, NewFile::OnDisk);
  std::set<std::size_t> sizes;
  for (unsigned seed = 0; seed < 200; ++seed) {
    const MemoryFiles left(std::make_shared<MemoryDisk>(files.AfterPowerCut(seed)));
    EXPECT_EQ(left.Bytes(kA), kNew);
    if (left.Bytes(kB) != "(missing)") sizes.insert(left.Bytes(kB).size());
  }
  EXPECT_GT(sizes.size(), 5u) << "it is cut anywhere";
}

}  // namespace
}  // namespace tarvo::test
