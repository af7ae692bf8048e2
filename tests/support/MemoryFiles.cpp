#include "support/MemoryFiles.h"

#include <algorithm>

#include "platform/NameLists.h"
#include "platform/Siblings.h"
#include "support/CodeOf.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

[[noreturn]] void Fail(TextView operation, TextView path, int code) {
  throw PlatformError(Text(operation), Text(path), code);
}

bool IsTemporary(TextView name) {
  return Siblings::IsSibling(Utf8FromText(name));
}

class MemoryReader : public FileReader {
 public:
  explicit MemoryReader(std::shared_ptr<const FileText> bytes) : bytes_(std::move(bytes)) {}

  std::uint64_t Size() const override { return bytes_->size(); }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
    const std::size_t from = std::min<std::uint64_t>(position, bytes_->size());
    return bytes_->copy(block.data(), block.size(), from);
  }

 private:
  std::shared_ptr<const FileText> bytes_;
};

class MemoryReplacement : public FileReplacement {
 public:
  MemoryReplacement(std::shared_ptr<MemoryDisk> disk, TextView path)
      : disk_(std::move(disk)), path_(path) {
    if (EndsInSeparator(path)) Fail(u"replace", path, kIsFolder);
    if (!Old()) disk_->RequireFolderOf(u"replace", path);
  }

  void Write(FileTextView bytes) override { grown_ += bytes; }

  std::uint64_t CopyFrom(FileReader& source, std::uint64_t position, std::uint64_t count) override {
    const std::uint64_t left = source.Size() - std::min(position, source.Size());
    FileText bytes(std::min(count, left), '\0');
    bytes.resize(source.ReadAt(position, bytes));
    grown_ += bytes;
    return bytes.size();
  }

  void Commit() override {
    auto bytes = std::make_shared<FileText>(std::move(grown_));
    if (MemoryDisk::Node* const old = Old()) {
      old->Bytes = std::move(bytes);
      old->Changed = disk_->Tick();
    } else {
      disk_->Place(u"replace", path_, {{}, std::move(bytes)});
    }
  }

 private:
  /// The file that stands there now; throws for what can't be replaced.
  MemoryDisk::Node* Old() {
    MemoryDisk::Node* const old = disk_->Find(path_);
    if (old && !old->Bytes) Fail(u"replace", path_, kIsFolder);
    if (old && (old->Attributes & kReadOnlyFile) != 0) Fail(u"replace", path_, kAccessDenied);
    return old;
  }

  std::shared_ptr<MemoryDisk> disk_;
  Text path_;
  FileText grown_;
};

class MemoryLock : public FolderLock {
 public:
  MemoryLock(std::shared_ptr<MemoryDisk> disk, const Text& key)
      : disk_(std::move(disk)), key_(key) {}
  ~MemoryLock() override { disk_->Locks.erase(key_); }

 private:
  std::shared_ptr<MemoryDisk> disk_;
  Text key_;
};

}  // namespace

void MemoryFiles::Put(TextView path, FileTextView bytes) {
  for (std::size_t at = path.find(u'\\', 3); at != Text::npos; at = path.find(u'\\', at + 1)) {
    const TextView folder = path.substr(0, at);
    if (!disk_->Find(folder)) disk_->Place(u"make folder", folder, {});
  }
  disk_->Nodes.erase(MemoryDisk::KeyOf(path).value_or(Text()));
  disk_->Place(u"write", path, {{}, std::make_shared<FileText>(bytes)});
}

FileText MemoryFiles::Bytes(TextView path) const {
  const MemoryDisk::Node* const node = disk_->Find(path);
  return node && node->Bytes ? *node->Bytes : "(missing)";
}

bool MemoryFiles::FileExists(TextView path) {
  const MemoryDisk::Node* const node = disk_->Find(path);
  return node && node->Bytes && !EndsInSeparator(path);
}

bool MemoryFiles::FolderExists(TextView path) {
  const MemoryDisk::Node* const node = disk_->Find(path);
  return node && !node->Bytes;
}

std::optional<FileStamp> MemoryFiles::Stamp(TextView path) {
  if (!FileExists(path)) return {};
  const MemoryDisk::Node& node = *disk_->Find(path);
  return FileStamp{node.Bytes->size(), node.Changed};
}

std::uint64_t MemoryFiles::FileSize(TextView path) {
  return disk_->FileAt(u"look at", path).Bytes->size();
}

unsigned MemoryFiles::Attributes(TextView path) {
  return disk_->At(u"look at", path).Attributes;
}

void MemoryFiles::SetAttributes(TextView path, unsigned attributes) {
  MemoryDisk::Node& node = disk_->FileAt(u"change", path);
  if (node.Attributes == attributes) return;
  node.Attributes = attributes;
  node.Changed = disk_->Tick();
}

std::unique_ptr<FileReader> MemoryFiles::Open(TextView path) {
  return std::make_unique<MemoryReader>(disk_->FileAt(u"open", path).Bytes);
}

std::unique_ptr<FileReplacement> MemoryFiles::Replace(TextView path, NewFile) {
  return std::make_unique<MemoryReplacement>(disk_, path);
}

void MemoryFiles::MakeEmptyFile(TextView path) {
  if (disk_->Find(path)) {
    disk_->FileAt(u"write", path);
  } else {
    disk_->Place(u"write", path, {{}, std::make_shared<FileText>()});
  }
}

void MemoryFiles::MakeFolder(TextView path) {
  if (disk_->Find(path)) Fail(u"make folder", path, kIsThere);
  disk_->Place(u"make folder", path, {});
}

void MemoryFiles::RemoveFolder(TextView path) {
  if (disk_->At(u"delete folder", path).Bytes) Fail(u"delete folder", path, kIsNoFolder);
  const Text key = *MemoryDisk::KeyOf(path);
  const auto below = disk_->Nodes.lower_bound(key + u"\\");
  if (below != disk_->Nodes.end() && below->first.starts_with(key + u"\\")) {
    Fail(u"delete folder", path, kIsNotEmpty);
  }
  disk_->Nodes.erase(key);
}

void MemoryFiles::Rename(TextView from, TextView to) {
  const MemoryDisk::Node node = disk_->FileAt(u"rename", from);
  const Text source = *MemoryDisk::KeyOf(from);
  if (MemoryDisk::KeyOf(to) == source) {
    disk_->Nodes.erase(source);
  } else if (disk_->Find(to)) {
    Fail(u"rename", to, kIsThere);
  }
  disk_->Place(u"rename", to, node);
  if (MemoryDisk::KeyOf(to) != source) disk_->Nodes.erase(source);
}

void MemoryFiles::Remove(TextView path) {
  const MemoryDisk::Node& node = disk_->FileAt(u"delete", path);
  if ((node.Attributes & kReadOnlyFile) != 0) Fail(u"delete", path, kAccessDenied);
  disk_->Nodes.erase(*MemoryDisk::KeyOf(path));
}

/// The names of the files or of the folders in a folder, but for temporaries.
std::vector<Text> MemoryFiles::Listed(TextView folder, bool folders) {
  const MemoryDisk::Node* const node = disk_->Find(folder);
  if (!node || node->Bytes) Fail(u"list", folder, node ? kIsNoFolder : kNoSuchFolder);
  const Text start = *MemoryDisk::KeyOf(folder) + u"\\";
  std::vector<Text> names;
  for (auto at = disk_->Nodes.lower_bound(start);
       at != disk_->Nodes.end() && at->first.starts_with(start); ++at) {
    if (at->first.find(u'\\', start.size()) != Text::npos) continue;
    const Text name = BareName(at->second.Path);
    if (folders == !at->second.Bytes && !IsTemporary(name)) names.push_back(name);
  }
  return SortedNames(std::move(names));
}

std::vector<Text> MemoryFiles::FileNames(TextView folder, TextView pattern) {
  std::vector<Text> names = Listed(folder, false);
  std::erase_if(names, [&](const Text& name) { return !MatchesAnyPattern(name, pattern); });
  return names;
}

std::vector<Text> MemoryFiles::FolderNames(TextView folder) {
  return Listed(folder, true);
}

Text MemoryFiles::RealPath(TextView path) {
  return disk_->At(u"look at", path).Path;
}

void MemoryFiles::Sync(TextView folder) {
  if (!FolderExists(folder)) Fail(u"sync", folder, kNoSuchFolder);
}

LockAttempt MemoryFiles::TryLock(TextView folder, TextView purpose) {
  if (!FolderExists(folder)) Fail(u"lock", folder, kNoSuchFolder);
  const auto [held, isOurs] = disk_->Locks.try_emplace(*MemoryDisk::KeyOf(folder), purpose);
  if (!isOurs) return {nullptr, held->second};
  return {std::make_unique<MemoryLock>(disk_, held->first), {}};
}

void MemoryFiles::RemoveAbandoned() {
  std::erase_if(disk_->Nodes,
                [](const auto& node) { return IsTemporary(BareName(node.second.Path)); });
}

}  // namespace tarvo::test
