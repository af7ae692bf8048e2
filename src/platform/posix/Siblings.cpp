#include "platform/posix/Siblings.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <random>
#include <sstream>
#include <vector>

#include "platform/posix/HostPaths.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {
namespace {

constexpr std::string_view kPrefix = ".tarvo-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::string_view kJournalSuffix = ".pending";

std::string NewToken() {
  std::random_device random;
  std::ostringstream token;
  token << std::hex << getpid() << '_' << random() << random();
  return token.str();
}

/// A line of the journal: the path with its line breaks and backslashes escaped.
std::string Line(const std::string& folder) {
  std::string line;
  for (const char byte : folder) {
    if (byte == '\\') {
      line += "\\\\";
    } else if (byte == '\n') {
      line += "\\n";
    } else {
      line += byte;
    }
  }
  return line + '\n';
}

/// The folders of a journal. A last line without its end was cut short before a sibling was made.
std::vector<std::string> FoldersOf(std::string_view journal) {
  std::vector<std::string> folders;
  std::string folder;
  for (std::size_t i = 0; i < journal.size(); ++i) {
    if (journal[i] == '\n') {
      if (folder.starts_with('/')) folders.push_back(folder);
      folder.clear();
    } else if (journal[i] == '\\' && i + 1 < journal.size()) {
      ++i;
      folder += journal[i] == 'n' ? '\n' : journal[i];
    } else {
      folder += journal[i];
    }
  }
  return folders;
}

std::string ReadAll(int descriptor) {
  std::string text;
  char block[4096];
  ssize_t count;
  while ((count = pread(descriptor, block, sizeof block, static_cast<off_t>(text.size()))) > 0) {
    text.append(block, static_cast<std::size_t>(count));
  }
  return text;
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) return names;
  while (const dirent* entry = readdir(stream.get())) names.emplace_back(entry->d_name);
  return names;
}

bool IsSameFile(int descriptor, const std::string& path) {
  struct stat open;
  struct stat named;
  return fstat(descriptor, &open) == 0 && lstat(path.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

/// Gives false when a sibling of `token` is left in `folder`.
bool RemoveSiblings(const std::string& folder, const std::string& token) {
  if (access(folder.c_str(), R_OK | X_OK) != 0) return errno == ENOENT || errno == ENOTDIR;
  const std::string start = std::string(kPrefix) + token + '-';
  bool clean = true;
  for (const std::string& name : NamesIn(folder)) {
    if (!name.starts_with(start) || !Siblings::IsSibling(name)) continue;
    const std::string path = JoinHostPath(folder, name);
    clean &= unlink(path.c_str()) == 0 || errno == ENOENT;
  }
  return clean;
}

}  // namespace

Siblings::Siblings(std::string journalFolder)
    : journalFolder_(std::move(journalFolder)),
      token_(NewToken()),
      hasJournal_(!journalFolder_.empty()) {}

Siblings::~Siblings() {
  if (journal_.IsOpen() && left_ == 0) unlink(JournalPath().c_str());
}

bool Siblings::IsSibling(std::string_view name) {
  return name.starts_with(kPrefix) && name.ends_with(kSuffix);
}

std::string Siblings::JournalPath() const {
  return JoinHostPath(journalFolder_, token_ + std::string(kJournalSuffix));
}

std::string Siblings::Next(const std::string& folder) {
  if (hasJournal_ && !noted_.contains(folder)) Note(folder);
  ++left_;
  const std::string number = std::to_string(++lastNumber_);
  return JoinHostPath(folder, std::string(kPrefix) + token_ + '-' + number + std::string(kSuffix));
}

void Siblings::Note(const std::string& folder) {
  if (!journal_.IsOpen()) OpenJournal();
  if (!journal_.IsOpen()) return;
  const std::string line = Line(folder);
  const ssize_t written = write(journal_.Get(), line.data(), line.size());
  if (written == static_cast<ssize_t>(line.size())) {
    noted_.insert(folder);
  } else if (written > 0) {
    // Half a line would spoil the one that follows.
    const ssize_t ended = write(journal_.Get(), "\n", 1);
    hasJournal_ = ended == 1;
  }
}

void Siblings::OpenJournal() {
  hasJournal_ = false;
  if (!MakeFolders(journalFolder_, 0700)) return;
  const std::string path = JournalPath();
  for (int attempt = 0; attempt < 10; ++attempt) {
    Descriptor file(open(path.c_str(), O_CREAT | O_RDWR | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.IsOpen() || flock(file.Get(), LOCK_EX) != 0) return;
    // Another process may have found the file before it was locked, and deleted it as abandoned.
    if (!IsSameFile(file.Get(), path)) continue;
    journal_ = std::move(file);
    hasJournal_ = true;
    return;
  }
}

void Siblings::RemoveAbandoned() const {
  if (journalFolder_.empty()) return;
  for (const std::string& name : NamesIn(journalFolder_)) {
    if (!name.ends_with(kJournalSuffix)) continue;
    const std::string path = JoinHostPath(journalFolder_, name);
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    // Whoever holds the lock is alive.
    if (!file.IsOpen() || flock(file.Get(), LOCK_EX | LOCK_NB) != 0) continue;
    if (!IsSameFile(file.Get(), path)) continue;
    const std::string token = name.substr(0, name.size() - kJournalSuffix.size());
    const std::vector<std::string> folders = FoldersOf(ReadAll(file.Get()));
    const auto left = std::count_if(folders.begin(), folders.end(), [&](const std::string& folder) {
      return !RemoveSiblings(folder, token);
    });
    if (left == 0) unlink(path.c_str());
  }
}

}  // namespace tarvo
