#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "text/LetterCase.h"
#include "text/Paths.h"

namespace tarvo {

/// A disk in memory that can fail at any step. The library may use what is written out here and
/// nothing else: a call of one of the mocked functions fails the test.
class MemoryFiles : public Files {
 public:
  static constexpr int kNotFound = 2;

  std::map<Text, FileText> Contents;  ///< By folded path.
  int StepsLeft = -1;                 ///< So many steps succeed, the rest fail; -1: all succeed.
  int StepsDone = 0;

  FileText& operator[](TextView path) { return Contents[FoldCase(path)]; }

  void Step(TextView operation, TextView path) {
    ++StepsDone;
    if (StepsLeft == 0) throw PlatformError(Text(operation), Text(path), kDiskFull);
    if (StepsLeft > 0) --StepsLeft;
  }

  bool FileExists(TextView path) override { return Contents.contains(FoldCase(path)); }

  bool FolderExists(TextView path) override {
    const Text start = FoldCase(FolderWithoutTail(path)) + u"\\";
    return std::any_of(Contents.begin(), Contents.end(),
                       [&](const auto& file) { return file.first.starts_with(start); });
  }

  std::unique_ptr<FileReader> Open(TextView path) override {
    Step(u"open", path);
    const auto found = Contents.find(FoldCase(path));
    if (found == Contents.end()) throw PlatformError(u"open", Text(path), kNotFound);
    return std::make_unique<Reader>(*this, path, found->second);
  }

  std::unique_ptr<FileReplacement> Replace(TextView path, NewFile) override {
    Step(u"open", path);
    return std::make_unique<Replacement>(*this, path);
  }

  std::vector<Text> FileNames(TextView folder, TextView pattern) override {
    std::vector<Text> names;
    for (const auto& [path, bytes] : Contents) {
      const Text name = BareName(path);
      if (path == FoldCase(folder) + name && MatchesPattern(name, pattern)) names.push_back(name);
    }
    return names;
  }

  std::vector<Text> FolderNames(TextView) override { return {}; }

  MOCK_METHOD(std::optional<FileStamp>, Stamp, (TextView), (override));
  MOCK_METHOD(std::uint64_t, FileSize, (TextView), (override));
  MOCK_METHOD(unsigned, Attributes, (TextView), (override));
  MOCK_METHOD(void, SetAttributes, (TextView, unsigned), (override));
  MOCK_METHOD(void, MakeEmptyFile, (TextView), (override));
  MOCK_METHOD(void, MakeFolder, (TextView), (override));
  MOCK_METHOD(void, RemoveFolder, (TextView), (override));
  MOCK_METHOD(Text, RealPath, (TextView), (override));
  MOCK_METHOD(void, Sync, (TextView), (override));
  MOCK_METHOD(void, Rename, (TextView, TextView), (override));
  MOCK_METHOD(void, Remove, (TextView), (override));
  MOCK_METHOD(LockAttempt, TryLock, (TextView, TextView), (override));
  MOCK_METHOD(std::vector<Text>, Drives, (), (override));
  MOCK_METHOD(void, RemoveAbandoned, (), (override));

 private:
  struct Reader : FileReader {
    Reader(MemoryFiles& files, TextView path, FileTextView bytes)
        : files_(files), path_(path), bytes_(bytes) {}

    std::uint64_t Size() const override { return bytes_.size(); }

    std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
      files_.Step(u"read", path_);
      return FileTextView(bytes_).substr(position).copy(block.data(), block.size());
    }

    MemoryFiles& files_;
    Text path_;
    FileText bytes_;
  };

  struct Replacement : FileReplacement {
    Replacement(MemoryFiles& files, TextView path) : files_(files), path_(path) {}

    void Write(FileTextView bytes) override {
      files_.Step(u"write", path_);
      bytes_ += bytes;
    }

    std::uint64_t CopyFrom(FileReader&, std::uint64_t, std::uint64_t) override {
      ADD_FAILURE() << "a TGL file is never copied from another";
      return 0;
    }

    void Commit() override {
      files_.Step(u"replace", path_);
      files_[path_] = bytes_;
    }

    MemoryFiles& files_;
    Text path_;
    FileText bytes_;
  };
};

using TestFiles = testing::StrictMock<MemoryFiles>;

}  // namespace tarvo
