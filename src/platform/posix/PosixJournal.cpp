#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/Journal.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFolderLock.h"
#include "platform/posix/SystemCalls.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {
namespace {

/// True for a folder that nobody else can put journals into.
bool IsOwn(const std::string& folder) {
  struct stat state;
  return stat(folder.c_str(), &state) == 0 && state.st_uid == geteuid() &&
         (state.st_mode & 022) == 0;
}

class PosixJournal : public Journal {
 public:
  PosixJournal(Descriptor file, std::string path)
      : file_(std::move(file)), path_(std::move(path)) {}

  std::size_t Append(std::string_view bytes) override {
    const ssize_t written =
        Uninterrupted([&] { return write(file_.Get(), bytes.data(), bytes.size()); });
    return written < 0 ? 0 : static_cast<std::size_t>(written);
  }

  std::optional<std::string> ReadAll() override {
    std::string text;
    char block[4096];
    while (true) {
      const auto at = static_cast<off_t>(text.size());
      const ssize_t count =
          Uninterrupted([&] { return pread(file_.Get(), block, sizeof block, at); });
      if (count < 0) return std::nullopt;
      if (count == 0) return text;
      text.append(block, static_cast<std::size_t>(count));
    }
  }

  void Delete() override { unlink(path_.c_str()); }

 private:
  Descriptor file_;
  std::string path_;
};

}  // namespace

std::unique_ptr<Journal> MakeJournal(const std::string& folder, const std::string& name) {
  if (!MakeFolders(folder, 0700) || !IsOwn(folder)) return nullptr;
  const std::string path = JoinHostPath(folder, name);
  for (int attempt = 0; attempt < 10; ++attempt) {
    Descriptor file = OpenDescriptor(path, O_CREAT | O_RDWR | O_APPEND | O_NOFOLLOW, 0600);
    if (!file.IsOpen()) return nullptr;
    if (Uninterrupted([&] { return flock(file.Get(), LOCK_EX); }) != 0) {
      unlink(path.c_str());
      return nullptr;
    }
    // Another process may have found the file before it was locked, and deleted it as abandoned.
    if (StandsAt(file.Get(), path)) return std::make_unique<PosixJournal>(std::move(file), path);
  }
  return nullptr;
}

std::unique_ptr<Journal> TakeAbandonedJournal(const std::string& folder, const std::string& name) {
  const std::string path = JoinHostPath(folder, name);
  Descriptor file = OpenDescriptor(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  // Whoever holds the lock is alive.
  const auto lock = [&] { return flock(file.Get(), LOCK_EX | LOCK_NB); };
  if (!file.IsOpen() || Uninterrupted(lock) != 0 || !StandsAt(file.Get(), path)) return nullptr;
  return std::make_unique<PosixJournal>(std::move(file), path);
}

std::optional<std::vector<std::string>> NamesInHostFolder(const std::string& folder) {
  std::vector<std::string> names;
  const OpenFolder stream(folder);
  if (!stream.IsOpen()) {
    const bool isGone = errno == ENOENT || errno == ENOTDIR;
    return isGone ? std::optional(names) : std::nullopt;
  }
  while (const dirent* entry = stream.Next()) names.emplace_back(entry->d_name);
  return errno == 0 ? std::optional(names) : std::nullopt;
}

bool RemoveHostFile(const std::string& folder, const std::string& name) {
  return unlink(JoinHostPath(folder, name).c_str()) == 0 || errno == ENOENT;
}

bool RemoveAbandonedLock(const std::string& folder) {
  return PosixFolderLock::RemoveAbandoned(folder);
}

bool IsWholeHostPath(std::string_view path) {
  return path.starts_with('/');
}

}  // namespace tarvo
