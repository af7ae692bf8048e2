#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/Journal.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {
namespace {

bool IsSameFile(int descriptor, const std::string& path) {
  struct stat open;
  struct stat named;
  return fstat(descriptor, &open) == 0 && lstat(path.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

class PosixJournal : public Journal {
 public:
  PosixJournal(Descriptor file, std::string path)
      : file_(std::move(file)), path_(std::move(path)) {}

  std::size_t Append(std::string_view bytes) override {
    const ssize_t written = write(file_.Get(), bytes.data(), bytes.size());
    return written < 0 ? 0 : static_cast<std::size_t>(written);
  }

  std::string ReadAll() override {
    std::string text;
    char block[4096];
    ssize_t count;
    const auto at = [&] { return static_cast<off_t>(text.size()); };
    while ((count = pread(file_.Get(), block, sizeof block, at())) > 0) {
      text.append(block, static_cast<std::size_t>(count));
    }
    return text;
  }

  void Delete() override { unlink(path_.c_str()); }

 private:
  Descriptor file_;
  std::string path_;
};

}  // namespace

std::unique_ptr<Journal> MakeJournal(const std::string& folder, const std::string& name) {
  if (!MakeFolders(folder, 0700)) return nullptr;
  const std::string path = JoinHostPath(folder, name);
  for (int attempt = 0; attempt < 10; ++attempt) {
    Descriptor file(open(path.c_str(), O_CREAT | O_RDWR | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.IsOpen() || flock(file.Get(), LOCK_EX) != 0) return nullptr;
    // Another process may have found the file before it was locked, and deleted it as abandoned.
    if (IsSameFile(file.Get(), path)) return std::make_unique<PosixJournal>(std::move(file), path);
  }
  return nullptr;
}

std::unique_ptr<Journal> TakeAbandonedJournal(const std::string& folder, const std::string& name) {
  const std::string path = JoinHostPath(folder, name);
  Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  // Whoever holds the lock is alive.
  if (!file.IsOpen() || flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return nullptr;
  if (!IsSameFile(file.Get(), path)) return nullptr;
  return std::make_unique<PosixJournal>(std::move(file), path);
}

std::optional<std::vector<std::string>> NamesInHostFolder(const std::string& folder) {
  std::vector<std::string> names;
  if (access(folder.c_str(), R_OK | X_OK) != 0) {
    const bool isGone = errno == ENOENT || errno == ENOTDIR;
    return isGone ? std::optional(names) : std::nullopt;
  }
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) return std::nullopt;
  while (const dirent* entry = readdir(stream.get())) names.emplace_back(entry->d_name);
  return names;
}

bool RemoveHostFile(const std::string& folder, const std::string& name) {
  return unlink(JoinHostPath(folder, name).c_str()) == 0 || errno == ENOENT;
}

bool IsWholeHostPath(std::string_view path) {
  return path.starts_with('/');
}

}  // namespace tarvo
