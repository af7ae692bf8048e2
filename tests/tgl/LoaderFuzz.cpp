// Fuzzes the loader, in memory. Whatever the bytes are, they load or are refused with the loader's
// own error; what has loaded is written, and loads again and is written again as the same bytes.

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/Files.h"
#include "text/RaisedError.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLFileRep.h"
#include "tgl/TGLRepair.h"

namespace {

using namespace tarvo;

void Expect(bool holds) {
  if (!holds) std::abort();
}

/// One file, whatever its path. What the library has no use for ends the run.
class OneFile : public Files {
 public:
  FileText Bytes;

  bool FileExists(TextView) override { return true; }
  std::unique_ptr<FileReader> Open(TextView) override { return std::make_unique<Reader>(Bytes); }
  std::unique_ptr<FileReplacement> Replace(TextView, NewFile) override {
    return std::make_unique<Replacement>(Bytes);
  }

  bool FolderExists(TextView) override { std::abort(); }
  std::optional<FileStamp> Stamp(TextView) override { std::abort(); }
  std::uint64_t FileSize(TextView) override { std::abort(); }
  unsigned Attributes(TextView) override { std::abort(); }
  void SetAttributes(TextView, unsigned) override { std::abort(); }
  void MakeEmptyFile(TextView) override { std::abort(); }
  void MakeFolder(TextView) override { std::abort(); }
  void RemoveFolder(TextView) override { std::abort(); }
  Text RealPath(TextView) override { std::abort(); }
  void Sync(TextView) override { std::abort(); }
  LockAttempt TryLock(TextView, TextView) override { std::abort(); }
  void Rename(TextView, TextView) override { std::abort(); }
  void Remove(TextView) override { std::abort(); }
  std::vector<Text> FileNames(TextView, TextView) override { std::abort(); }
  std::vector<Text> FolderNames(TextView) override { std::abort(); }
  std::vector<Text> Drives() override { std::abort(); }
  void RemoveAbandoned() override { std::abort(); }

 private:
  struct Reader : FileReader {
    explicit Reader(const FileText& bytes) : Whole(bytes) {}
    std::uint64_t Size() const override { return Whole.size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
      return Whole.copy(block.data(), block.size(), position);
    }
    const FileText& Whole;
  };

  struct Replacement : FileReplacement {
    explicit Replacement(FileText& target) : Target(target) {}
    void Write(FileTextView bytes) override { Grown += bytes; }
    std::uint64_t CopyFrom(FileReader&, std::uint64_t, std::uint64_t) override { std::abort(); }
    void Commit() override { Target = Grown; }
    FileText& Target;
    FileText Grown;
  };
};

/// Runs a step that may raise an error from one of the named sources; true when it doesn't.
bool Allowed(std::initializer_list<TextView> sources, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const RaisedError& error) {
    bool known = false;
    for (const TextView source : sources) known = known || error.Source == source;
    Expect(known);
    return false;
  }
}

void LoadAndRewrite(const FileText& bytes) {
  OneFile disk;
  disk.Bytes = bytes;
  TGLFile file(disk);
  file.SetFilename(u"x");
  if (!Allowed({u"TGLFileRep.ReadFile"}, [&] { file.Load(); })) return;
  for (std::int32_t i = 1; i <= file.Strings().Count(); i += 2) {
    Expect(file.Strings().Lookup(file.Strings().Item(i)->Name) == file.Strings().Item(i));
  }
  if (!Allowed({u"TGLFileRep.Write_SortString"}, [&] { file.Update(u"x", true); })) return;
  const FileText written = disk.Bytes;
  const std::int32_t count = file.Strings().Count();
  file.Load();
  Expect(file.Strings().Count() == count);
  file.Update(u"x", true);
  Expect(disk.Bytes == written);
}

void Repair(const FileText& bytes) {
  OneFile disk;
  disk.Bytes = bytes;
  TGLFileRep rep(disk);
  std::optional<TGLRepair> repair;
  if (!Allowed({u"TGLFileRep.ReadFile"}, [&] { repair.emplace(rep.ReadEntries(u"x")); })) return;
  for (std::size_t i = 0; i < repair->DroppedCount(); ++i)
    Expect(!repair->DroppedAt(i).Why.empty());
  if (repair->Strings().Count() == 0) return;
  rep.WriteFile(u"x", &repair->Strings(), true);
  Expect(rep.ReadFile(u"x").Count() == repair->Strings().Count());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const FileText bytes(reinterpret_cast<const char*>(data), size);
  LoadAndRewrite(bytes);
  Repair(bytes);
  return 0;
}
