#include "support/MemoryDisk.h"

#include <algorithm>

#include "support/CodeOf.h"
#include "text/LetterCase.h"
#include "text/Paths.h"

namespace tarvo::test {
namespace {

bool IsSeparator(char16_t unit) {
  return unit == u'\\' || unit == u'/';
}

/// A path with its drive and single backslashes; nothing for one that leads nowhere.
std::optional<Text> Plain(TextView path) {
  if (path.find(u'\0') != TextView::npos) return {};
  Text plain = u"Z:";
  if (path.size() >= 2 && path[1] == u':') {
    plain = path.substr(0, 2);
    path.remove_prefix(2);
    if (!path.empty() && !IsSeparator(path[0])) return {};
  } else if (path.empty() || !IsSeparator(path[0])) {
    return {};
  }
  while (!path.empty()) {
    const TextView part(path.begin(), std::find_if(path.begin(), path.end(), IsSeparator));
    if (part == u"..") {
      plain.resize(std::max<std::size_t>(plain.rfind(u'\\') + 1, 3) - 1);
    } else if (!part.empty() && part != u".") {
      plain += u"\\" + Text(part);
    }
    path.remove_prefix(std::min(path.size(), part.size() + 1));
  }
  return plain;
}

Text FolderOf(const Text& key) {
  return key.substr(0, std::min(key.rfind(u'\\'), key.size()));
}

}  // namespace

bool EndsInSeparator(TextView path) {
  return !path.empty() && IsSeparator(path.back());
}

MemoryDisk::MemoryDisk() : Nodes{{u"c:", {u"C:\\", nullptr}}, {u"z:", {u"Z:\\", nullptr}}} {}

std::optional<Text> MemoryDisk::KeyOf(TextView path) {
  const std::optional<Text> plain = Plain(path);
  return plain ? std::optional(FoldCase(*plain)) : std::nullopt;
}

MemoryDisk::Node* MemoryDisk::Find(TextView path) {
  const std::optional<Text> key = KeyOf(path);
  const auto found = key ? Nodes.find(*key) : Nodes.end();
  return found == Nodes.end() ? nullptr : &found->second;
}

bool MemoryDisk::HasFolderOf(TextView path) const {
  const std::optional<Text> key = KeyOf(path);
  const auto folder = key ? Nodes.find(FolderOf(*key)) : Nodes.end();
  return folder != Nodes.end() && !folder->second.Bytes;
}

/// The code for a path where nothing stands.
int MemoryDisk::MissingCode(TextView path) const {
  return !KeyOf(path) ? kLeadsNowhere : HasFolderOf(path) ? kNoSuchFile : kNoSuchFolder;
}

MemoryDisk::Node& MemoryDisk::At(TextView operation, TextView path) {
  Node* const node = Find(path);
  if (!node) throw PlatformError(Text(operation), Text(path), MissingCode(path));
  return *node;
}

MemoryDisk::Node& MemoryDisk::FileAt(TextView operation, TextView path) {
  Node& node = At(operation, path);
  if (node.Bytes && !EndsInSeparator(path)) return node;
  throw PlatformError(Text(operation), Text(path), kIsFolder);
}

void MemoryDisk::RequireFolderOf(TextView operation, TextView path) {
  if (!HasFolderOf(path)) throw PlatformError(Text(operation), Text(path), MissingCode(path));
}

void MemoryDisk::Place(TextView operation, TextView path, Node node) {
  RequireFolderOf(operation, path);
  const Text plain = *Plain(path);
  const Text key = FoldCase(plain);
  node.Path = JoinPath(Nodes.at(FolderOf(key)).Path, BareName(plain));
  node.Changed = Tick();
  Nodes[key] = std::move(node);
}

}  // namespace tarvo::test
