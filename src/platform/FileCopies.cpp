#include "platform/FileCopies.h"

#include <algorithm>
#include <vector>

#include "platform/PlatformError.h"

namespace tarvo {

WholeText ReadWhole(Files& files, TextView path) {
  const auto file = files.Open(path);
  FileText bytes(file->Size(), '\0');
  if (file->ReadAt(0, std::span(bytes)) != bytes.size()) {
    throw PlatformError(u"read", Text(path), kReadFault);
  }
  return WholeText(std::move(bytes));
}

void WriteWhole(Files& files, TextView path, FileTextView bytes) {
  const auto file = files.Replace(path);
  file->Write(bytes);
  file->Commit();
}

std::uint64_t HashOf(FileTextView bytes) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char byte : bytes) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  }
  return hash;
}

void CopyOneFile(Files& files, TextView from, TextView to, NewFile newFile) {
  const auto source = files.Open(from);
  const auto target = files.Replace(to, newFile);
  if (target->CopyFrom(*source, 0, source->Size()) != source->Size()) {
    throw PlatformError(u"read", Text(from), kReadFault);
  }
  target->Commit();
}

bool SameBytes(Files& files, TextView a, TextView b) {
  constexpr std::size_t kBlock = 64 * 1024;
  const auto first = files.Open(a);
  const auto second = files.Open(b);
  const std::uint64_t size = first->Size();
  if (second->Size() != size) return false;
  std::vector<char> block(std::min<std::uint64_t>(size, kBlock));
  std::vector<char> other(block.size());
  for (std::uint64_t at = 0; at < size;) {
    const std::size_t count = first->ReadAt(at, block);
    if (count == 0 || second->ReadAt(at, other) != count) return false;
    if (!std::equal(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count),
                    other.begin())) {
      return false;
    }
    at += count;
  }
  return true;
}

void MakeFolders(Files& files, const Text& folder) {
  if (files.FolderExists(folder)) return;
  const std::size_t slash = folder.rfind(u'\\');
  if (slash != Text::npos) MakeFolders(files, folder.substr(0, slash));
  try {
    files.MakeFolder(folder);
  } catch (const PlatformError&) {
    // Another program may have made it in this moment.
    if (!files.FolderExists(folder)) throw;
  }
}

}  // namespace tarvo
