#pragma once

#include <algorithm>
#include <map>
#include <set>

#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "text/Paths.h"

namespace tarvo::test {

/// A small tree in memory that can be looked at and read, and nothing else.
class FakeFiles : public Files {
 public:
  /// Makes a folder that stands in one that is there already.
  void PutFolder(const Text& path) { folders_.insert(path); }
  void PutFile(const Text& path, FileText bytes) { files_[path] = std::move(bytes); }

  bool FileExists(TextView path) override { return files_.contains(Text(path)); }
  bool FolderExists(TextView path) override { return folders_.contains(Text(path)); }
  std::optional<FileStamp> Stamp(TextView) override { return {}; }
  std::uint64_t FileSize(TextView path) override { return files_.at(Text(path)).size(); }
  unsigned Attributes(TextView) override { return kNormalFile; }
  std::vector<Text> Drives() override { return {u"C:", u"Z:"}; }
  void RemoveAbandoned() override {}

  std::unique_ptr<FileReader> Open(TextView path) override {
    const auto found = files_.find(Text(path));
    if (found == files_.end()) throw PlatformError(u"open", Text(path), kNoSuchFile);
    return std::make_unique<Reader>(found->second);
  }

  std::vector<Text> FileNames(TextView folder, TextView pattern) override {
    std::vector<Text> names;
    for (const auto& [path, bytes] : files_) {
      if (In(path, folder) && MatchesPattern(BareName(path), pattern)) {
        names.push_back(BareName(path));
      }
    }
    return names;
  }

  std::vector<Text> FolderNames(TextView folder) override {
    std::vector<Text> names;
    for (const Text& path : folders_) {
      if (In(path, folder)) names.push_back(BareName(path));
    }
    return names;
  }

  void SetAttributes(TextView path, unsigned) override { Refuse(path); }
  std::unique_ptr<FileReplacement> Replace(TextView path, NewFile) override { Refuse(path); }
  void MakeEmptyFile(TextView path) override { Refuse(path); }
  void MakeFolder(TextView path) override { Refuse(path); }
  void RemoveFolder(TextView path) override { Refuse(path); }
  Text RealPath(TextView path) override { return Text(path); }
  void Sync(TextView) override {}
  LockAttempt TryLock(TextView folder, TextView) override { Refuse(folder); }
  void Rename(TextView path, TextView) override { Refuse(path); }
  void Remove(TextView path) override { Refuse(path); }

 private:
  class Reader : public FileReader {
   public:
    explicit Reader(const FileText& bytes) : bytes_(bytes) {}
    std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
      return bytes_.copy(block.data(), block.size(), position);
    }

   private:
    const FileText& bytes_;
  };

  [[noreturn]] static void Refuse(TextView path) {
    throw PlatformError(u"change", Text(path), kAccessDenied);
  }

  static bool In(const Text& path, TextView folder) {
    const Text head = JoinPath(folder, u"");
    return path.size() > head.size() && path.starts_with(head) &&
           path.find(u'\\', head.size()) == Text::npos;
  }

  std::set<Text> folders_{u"Z:\\", u"C:\\"};
  std::map<Text, FileText> files_;
};

}  // namespace tarvo::test
