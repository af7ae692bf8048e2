#include "platform/Siblings.h"

#include <unistd.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <vector>

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
      if (IsWholeHostPath(folder)) folders.push_back(folder);
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

/// Gives false when a sibling of `token` is left in `folder`.
bool RemoveSiblings(const std::string& folder, const std::string& token) {
  const auto names = NamesInHostFolder(folder);
  if (!names) return false;
  const std::string start = std::string(kPrefix) + token + '-';
  bool clean = true;
  for (const std::string& name : *names) {
    if (name.starts_with(start) && Siblings::IsSibling(name)) clean &= RemoveHostFile(folder, name);
  }
  return clean;
}

}  // namespace

Siblings::Siblings(std::vector<std::string> journalFolders)
    : journalFolders_(std::move(journalFolders)), token_(NewToken()) {
  std::erase(journalFolders_, std::string());
  hasJournal_ = !journalFolders_.empty();
}

Siblings::~Siblings() {
  if (journal_ && left_ == 0) journal_->Delete();
}

bool Siblings::IsSibling(std::string_view name) {
  return name.starts_with(kPrefix) && name.ends_with(kSuffix);
}

std::string Siblings::Next(const std::string& folder) {
  if (hasJournal_ && !noted_.contains(folder)) Note(folder);
  ++left_;
  return std::string(kPrefix) + token_ + '-' + std::to_string(++lastNumber_) + std::string(kSuffix);
}

void Siblings::NoteLock(const std::string& folder) {
  if (hasJournal_ && !noted_.contains(folder)) Note(folder);
  ++left_;
}

void Siblings::MakeJournal() {
  for (const std::string& folder : journalFolders_) {
    journal_ = tarvo::MakeJournal(folder, token_ + std::string(kJournalSuffix));
    if (journal_) return;
  }
  hasJournal_ = false;
}

void Siblings::Note(const std::string& folder) {
  if (!journal_) MakeJournal();
  if (!hasJournal_) return;
  const std::string line = Line(folder);
  const std::size_t written = journal_->Append(line);
  if (written == line.size()) {
    noted_.insert(folder);
  } else if (written > 0) {
    // Half a line would spoil the one that follows.
    hasJournal_ = journal_->Append("\n") == 1;
  }
}

void Siblings::RemoveAbandoned() const {
  for (const std::string& folder : journalFolders_) RemoveAbandonedIn(folder);
}

void Siblings::RemoveAbandonedIn(const std::string& journalFolder) const {
  const auto names = NamesInHostFolder(journalFolder);
  if (!names) return;
  for (const std::string& name : *names) {
    if (!name.ends_with(kJournalSuffix)) continue;
    const auto journal = TakeAbandonedJournal(journalFolder, name);
    if (!journal) continue;
    const std::optional<std::string> text = journal->ReadAll();
    if (!text) continue;
    const std::string token = name.substr(0, name.size() - kJournalSuffix.size());
    const std::vector<std::string> folders = FoldersOf(*text);
    const auto left = std::count_if(folders.begin(), folders.end(), [&](const std::string& folder) {
      const bool hasLock = !RemoveAbandonedLock(folder);
      return !RemoveSiblings(folder, token) || hasLock;
    });
    if (left == 0) journal->Delete();
  }
}

}  // namespace tarvo
