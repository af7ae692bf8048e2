#include "support/PowerCutFiles.h"

#include <algorithm>
#include <random>
#include <utility>

#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

Text KeyOf(TextView path) {
  return MemoryDisk::KeyOf(path).value_or(Text());
}

bool IsIn(const Text& key, const Text& folder) {
  return key.starts_with(folder + u"\\");
}

/// What a content that wasn't waited for may be.
FileText Spoilt(const FileText& bytes, std::mt19937& chance) {
  const std::size_t part = bytes.empty() ? 0 : chance() % bytes.size();
  switch (chance() % 5) {
    case 0:
      return bytes;
    case 1:
      return {};
    case 2:
      return bytes.substr(0, part);
    case 3:
      return FileText(bytes.size(), '\0');
    default:
      return bytes.substr(0, part) + FileText(bytes.size() - part, '\0');
  }
}

}  // namespace

/// Grows in a sibling, which a cut may leave.
class PowerCutReplacement : public FileReplacement {
 public:
  PowerCutReplacement(PowerCutFiles& files, TextView path, NewFile newFile,
                      std::unique_ptr<FileReplacement> behind)
      : files_(files), path_(path), newFile_(newFile), behind_(std::move(behind)) {
    const Text folder = FolderWithoutTail(path_.substr(0, path_.size() - BareName(path_).size()));
    const Text name = u".tarvo-" + TextFromUtf8(std::to_string(++files_.siblings_)) + u".tmp";
    const Text sibling = JoinPath(files_.RealPath(folder), name);
    sibling_ = KeyOf(sibling);
    files_.Note({{sibling_, MemoryDisk::Node{sibling, std::make_shared<FileText>()}}});
  }

  ~PowerCutReplacement() override {
    if (!sibling_.empty() && !files_.IsCut()) files_.Note({{sibling_, {}}});
  }

  void Write(FileTextView bytes) override { behind_->Write(bytes); }

  std::uint64_t CopyFrom(FileReader& source, std::uint64_t position, std::uint64_t count) override {
    return behind_->CopyFrom(source, position, count);
  }

  void Commit() override {
    files_.Step();
    const bool waits = newFile_ == NewFile::OnDisk || files_.FileExists(path_);
    behind_->Commit();
    const auto node = files_.NodeAt(KeyOf(path_));
    if (!waits) files_.unsynced_.insert(node->Bytes);
    files_.Note({{std::exchange(sibling_, {}), {}}, {KeyOf(path_), node}});
    if (newFile_ == NewFile::Later) return;
    files_.Step();
    files_.BringLastToDisk();
  }

 private:
  PowerCutFiles& files_;
  Text path_;
  NewFile newFile_;
  std::unique_ptr<FileReplacement> behind_;
  Text sibling_;
};

void PowerCutFiles::Step() {
  ++steps_;
  if (IsCut()) throw PowerCut{};
}

std::optional<MemoryDisk::Node> PowerCutFiles::NodeAt(const Text& key) const {
  const auto found = Disk().Nodes.find(key);
  return found == Disk().Nodes.end() ? std::nullopt : std::optional(found->second);
}

void PowerCutFiles::Note(std::initializer_list<TextView> paths) {
  Change change;
  for (const TextView path : paths) change[KeyOf(path)] = NodeAt(KeyOf(path));
  Note(std::move(change));
}

/// Marks a change, and the earlier ones without which it can't be: those of the same names, of the
/// folders above and of what was in a folder.
void PowerCutFiles::Reach(std::vector<bool>& reached, std::size_t change) const {
  if (reached[change]) return;
  reached[change] = true;
  for (std::size_t earlier = change; earlier-- > 0;) {
    const bool isNeeded = std::ranges::any_of(pending_[change], [&](const auto& later) {
      return std::ranges::any_of(pending_[earlier], [&](const auto& before) {
        return before.first == later.first || IsIn(before.first, later.first) ||
               IsIn(later.first, before.first);
      });
    });
    if (isNeeded) Reach(reached, earlier);
  }
}

void PowerCutFiles::Apply(Nodes& nodes, const std::vector<bool>& reached) const {
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    if (!reached[i]) continue;
    for (const auto& [key, node] : pending_[i]) {
      nodes.erase(key);
      if (node) nodes[key] = *node;
    }
  }
}

void PowerCutFiles::BringLastToDisk() {
  std::vector<bool> reached(pending_.size());
  Reach(reached, pending_.size() - 1);
  Apply(onDisk_, reached);
  std::size_t at = 0;
  std::erase_if(pending_, [&](const Change&) { return reached[at++]; });
}

MemoryDisk PowerCutFiles::AfterPowerCut(unsigned seed) const {
  std::mt19937 chance(seed);
  const unsigned share = chance() % 5;  // From nothing to all.
  std::vector<bool> reached(pending_.size());
  for (std::size_t i = 0; i < reached.size(); ++i) {
    if (chance() % 4 < share) Reach(reached, i);
  }
  MemoryDisk found = Disk();
  found.Locks.clear();
  found.Nodes = onDisk_;
  Apply(found.Nodes, reached);
  for (auto& [key, node] : found.Nodes) {
    if (!unsynced_.contains(node.Bytes)) continue;
    node.Bytes = std::make_shared<FileText>(Spoilt(*node.Bytes, chance));
  }
  return found;
}

void PowerCutFiles::SetAttributes(TextView path, unsigned attributes) {
  Step();
  MemoryFiles::SetAttributes(path, attributes);
  Note({path});
}

std::unique_ptr<FileReplacement> PowerCutFiles::Replace(TextView path, NewFile newFile) {
  auto behind = MemoryFiles::Replace(path, newFile);
  return std::make_unique<PowerCutReplacement>(*this, path, newFile, std::move(behind));
}

void PowerCutFiles::MakeEmptyFile(TextView path) {
  Step();
  MemoryFiles::MakeEmptyFile(path);
  Note({path});
}

void PowerCutFiles::MakeFolder(TextView path) {
  Step();
  MemoryFiles::MakeFolder(path);
  Note({path});
}

void PowerCutFiles::RemoveFolder(TextView path) {
  Step();
  MemoryFiles::RemoveFolder(path);
  Note({path});
}

void PowerCutFiles::Rename(TextView from, TextView to) {
  Step();
  MemoryFiles::Rename(from, to);
  Note({from, to});
}

void PowerCutFiles::Remove(TextView path) {
  Step();
  MemoryFiles::Remove(path);
  Note({path});
}

void PowerCutFiles::Sync(TextView folder) {
  Step();
  MemoryFiles::Sync(folder);
  onDisk_ = Disk().Nodes;
  pending_.clear();
  unsynced_.clear();
}

}  // namespace tarvo::test
