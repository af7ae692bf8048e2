// Fuzzes the loader, in memory. Whatever the bytes are, they load or are refused with the loader's
// own error; what has loaded is written, and loads again and is written again as the same bytes.

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <initializer_list>

#include "support/MemoryFiles.h"
#include "text/RaisedError.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLFileRep.h"
#include "tgl/TGLRepair.h"

namespace {

using namespace tarvo;
using test::MemoryFiles;

constexpr TextView kPath = u"Z:\\x.TGL";

void Expect(bool holds) {
  if (!holds) std::abort();
}

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
  static MemoryFiles disk;
  disk.Put(kPath, bytes);
  TGLFile file(disk);
  file.SetFilename(kPath);
  if (!Allowed({u"TGLFileRep.ReadFile"}, [&] { file.Load(); })) return;
  for (std::int32_t i = 1; i <= file.Strings().Count(); i += 2) {
    Expect(file.Strings().Lookup(file.Strings().Item(i)->Name) == file.Strings().Item(i));
  }
  if (!Allowed({u"TGLFileRep.Write_SortString"}, [&] { file.Update(kPath, true); })) return;
  const FileText written = disk.Bytes(kPath);
  const std::int32_t count = file.Strings().Count();
  file.Load();
  Expect(file.Strings().Count() == count);
  file.Update(kPath, true);
  Expect(disk.Bytes(kPath) == written);
}

void Repair(const FileText& bytes) {
  static MemoryFiles disk;
  disk.Put(kPath, bytes);
  TGLFileRep rep(disk);
  std::optional<TGLRepair> repair;
  if (!Allowed({u"TGLFileRep.ReadFile"}, [&] { repair.emplace(rep.ReadEntries(kPath)); })) return;
  for (std::size_t i = 0; i < repair->DroppedCount(); ++i)
    Expect(!repair->DroppedAt(i).Why.empty());
  if (repair->Strings().Count() == 0) return;
  rep.WriteFile(kPath, &repair->Strings(), true);
  Expect(rep.ReadFile(kPath).Count() == repair->Strings().Count());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const FileText bytes(reinterpret_cast<const char*>(data), size);
  LoadAndRewrite(bytes);
  Repair(bytes);
  return 0;
}
