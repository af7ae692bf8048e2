#include "support/FailingFiles.h"

#include <algorithm>
#include <utility>

#include "support/MemoryFiles.h"

namespace tarvo::test {
namespace {

/// The verbs that the real files use.
constexpr TextView kVerbs[] = {
    u"look at", u"change",      u"open",          u"read",   u"replace", u"write", u"write", u"write",
    u"write",   u"make folder", u"delete folder", u"rename", u"delete",  u"list",  u"sync",  u"lock"};
static_assert(std::size(kVerbs) == static_cast<std::size_t>(FileStep::Count));

}  // namespace

class FailingReader : public FileReader {
 public:
  FailingReader(FailingFiles& files, TextView path)
      : files_(files), path_(path), behind_(files.files_.Open(path)) {}

  /// The reader to copy from in the kernel.
  FileReader& Behind() { return *behind_; }

  std::uint64_t Size() const override { return behind_->Size(); }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
    files_.Take(FileStep::Read, path_);
    return behind_->ReadAt(position, block);
  }

 private:
  FailingFiles& files_;
  Text path_;
  std::unique_ptr<FileReader> behind_;
};

class FailingReplacement : public FileReplacement {
 public:
  FailingReplacement(FailingFiles& files, TextView path, NewFile newFile)
      : files_(files), path_(path), behind_(files.files_.Replace(path, newFile)) {}

  void Write(FileTextView bytes) override {
    Step(FileStep::Write);
    const std::uint64_t fitting = files_.Fitting(bytes.size());
    behind_->Write(bytes.substr(0, fitting));
    Spend(fitting, bytes.size());
  }

  std::uint64_t CopyFrom(FileReader& source, std::uint64_t position, std::uint64_t count) override {
    Step(FileStep::Copy);
    const std::uint64_t left = source.Size() - std::min(position, source.Size());
    const std::uint64_t wanted = std::min(count, left);
    const std::uint64_t fitting = files_.Fitting(wanted);
    auto* const failing = dynamic_cast<FailingReader*>(&source);
    FileReader& plain = failing ? failing->Behind() : source;
    const std::uint64_t copied = behind_->CopyFrom(plain, position, fitting);
    Spend(fitting, wanted);
    return copied;
  }

  void Commit() override {
    Step(FileStep::Commit);
    behind_->Commit();
  }

 private:
  /// A replacement that has failed once goes on failing.
  void Step(FileStep step) {
    if (code_ != 0) throw PlatformError(u"write", path_, code_);
    try {
      files_.Take(step, path_);
    } catch (const PlatformError& error) {
      code_ = error.Code;
      throw;
    }
  }

  void Spend(std::uint64_t written, std::uint64_t wanted) {
    if (files_.bytesLeft_) *files_.bytesLeft_ -= written;
    if (written == wanted) return;
    code_ = files_.fullCode_;
    throw PlatformError(u"write", path_, code_);
  }

  FailingFiles& files_;
  Text path_;
  std::unique_ptr<FileReplacement> behind_;
  int code_ = 0;
};

void FailingFiles::Fail(FileStep step, int nth, int code, bool onwards) {
  Plan& changed = PlanOf(step);
  changed.FailAt = changed.Seen + nth;
  changed.Code = code;
  changed.Onwards = onwards;
}

void FailingFiles::FailAny(int nth, int code) {
  failAt_ = seen_ + nth;
  failCode_ = code;
}

void FailingFiles::FailAfterBytes(std::uint64_t bytes, int code) {
  bytesLeft_ = bytes;
  fullCode_ = code;
}

void FailingFiles::Heal() {
  for (Plan& changed : plans_) changed.FailAt = 0;
  bytesLeft_.reset();
  failAt_ = 0;
  killAt_ = 0;
}

void FailingFiles::Take(FileStep step, TextView path) {
  const auto fail = [&](int code) {
    throw PlatformError(Text(kVerbs[static_cast<std::size_t>(step)]), Text(path), code);
  };
  Plan& taken = PlanOf(step);
  ++taken.Seen;
  ++seen_;
  if (killAt_ != 0 && seen_ >= killAt_) throw Killed{};
  if (seen_ == failAt_) fail(failCode_);
  if (taken.FailAt == 0 || taken.Seen < taken.FailAt) return;
  if (!taken.Onwards) taken.FailAt = 0;
  fail(taken.Code);
}

std::uint64_t FailingFiles::Fitting(std::uint64_t bytes) const {
  return bytesLeft_ ? std::min(bytes, *bytesLeft_) : bytes;
}

bool FailingFiles::FileExists(TextView path) {
  Take(FileStep::Look, path);
  return files_.FileExists(path);
}

bool FailingFiles::FolderExists(TextView path) {
  Take(FileStep::Look, path);
  return files_.FolderExists(path);
}

std::optional<FileStamp> FailingFiles::Stamp(TextView path) {
  Take(FileStep::Look, path);
  return files_.Stamp(path);
}

std::uint64_t FailingFiles::FileSize(TextView path) {
  Take(FileStep::Look, path);
  return files_.FileSize(path);
}

unsigned FailingFiles::Attributes(TextView path) {
  Take(FileStep::Look, path);
  return files_.Attributes(path);
}

void FailingFiles::SetAttributes(TextView path, unsigned attributes) {
  Take(FileStep::SetAttributes, path);
  files_.SetAttributes(path, attributes);
}

std::unique_ptr<FileReader> FailingFiles::Open(TextView path) {
  Take(FileStep::Open, path);
  return std::make_unique<FailingReader>(*this, path);
}

std::unique_ptr<FileReplacement> FailingFiles::Replace(TextView path, NewFile newFile) {
  Take(FileStep::Replace, path);
  return std::make_unique<FailingReplacement>(*this, path, newFile);
}

void FailingFiles::MakeEmptyFile(TextView path) {
  Take(FileStep::MakeEmptyFile, path);
  files_.MakeEmptyFile(path);
}

void FailingFiles::MakeFolder(TextView path) {
  Take(FileStep::MakeFolder, path);
  files_.MakeFolder(path);
}

void FailingFiles::RemoveFolder(TextView path) {
  Take(FileStep::RemoveFolder, path);
  files_.RemoveFolder(path);
}

Text FailingFiles::RealPath(TextView path) {
  Take(FileStep::Look, path);
  return files_.RealPath(path);
}

void FailingFiles::Rename(TextView from, TextView to) {
  Take(FileStep::Rename, from);
  files_.Rename(from, to);
}

void FailingFiles::Remove(TextView path) {
  Take(FileStep::Remove, path);
  files_.Remove(path);
}

void FailingFiles::Sync(TextView folder) {
  Take(FileStep::Sync, folder);
  if (dynamic_cast<MemoryFiles*>(&files_)) files_.Sync(folder);
}

LockAttempt FailingFiles::TryLock(TextView folder, TextView purpose) {
  Take(FileStep::Lock, folder);
  return files_.TryLock(folder, purpose);
}

std::vector<Text> FailingFiles::FileNames(TextView folder, TextView pattern) {
  Take(FileStep::List, folder);
  return files_.FileNames(folder, pattern);
}

std::vector<Text> FailingFiles::FolderNames(TextView folder) {
  Take(FileStep::List, folder);
  return files_.FolderNames(folder);
}

}  // namespace tarvo::test
