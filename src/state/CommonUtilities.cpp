#include "state/CommonUtilities.h"

#include <algorithm>
#include <span>
#include <utility>

#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "state/Dialogue.h"
#include "state/ReadProgress.h"
#include "state/Shell.h"
#include "text/LetterCase.h"
#include "text/Lines.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// A copy of folders, in which every file is a step of its own.
class FolderCopy {
 public:
  FolderCopy(Application& app, Text last) : app_(app), last_(std::move(last)) {}

  void CopyTree(const Text& from, const Text& to) {
    Files& files = app_.machine.files;
    std::vector<Text> names;
    std::vector<Text> folders;
    Try([&] {
      if (!files.FolderExists(to)) files.MakeFolder(to);
      names = files.FileNames(from);
      folders = files.FolderNames(from);
    });
    for (const Text& name : names) {
      if (EqualIgnoringCase(JoinPath(to, name), last_)) {
        lastSource_ = JoinPath(from, name);
      } else {
        Try([&] { CopyOneFile(files, JoinPath(from, name), JoinPath(to, name), NewFile::Later); });
      }
    }
    for (const Text& name : folders) CopyTree(JoinPath(from, name), JoinPath(to, name));
  }

  /// Brings it all to the disk, and then the last file.
  void Finish(const Text& to) {
    Files& files = app_.machine.files;
    Try([&] { files.Sync(to); });
    if (!complete_ || lastSource_.empty()) return;
    Try([&] { CopyOneFile(files, lastSource_, last_, NewFile::OnDisk); });
  }

 private:
  template <class Step>
  void Try(Step&& step) {
    if (!NotingFailures(app_, step)) complete_ = false;
  }

  Application& app_;
  Text last_;
  Text lastSource_;
  bool complete_ = true;
};

/// `text` with a blank in place of each line break.
Text OneLine(Text text) {
  for (std::size_t at; (at = text.find(u"\r\n")) != Text::npos;) text.replace(at, 2, u" ");
  return text;
}

/// The error's words in one line, with the system's where they are not among them.
Text WordsOf(const RaisedError& error) {
  Text words = OneLine(error.Description);
  const Text system = SystemErrorText(error.SystemCode);
  if (error.SystemCode == 0 || words.find(system) != Text::npos) return words;
  return words + u" (" + system + u")";
}

}  // namespace

TextView CheckFile(Application& app, TextView path) {
  bool stands = false;
  NotingFailures(app, [&] { stands = app.machine.files.FileExists(path); });
  if (stands) return kFileOk;
  ++app.State.MissingFileCount;
  return kFileMissing;
}

void ClearReadOnly(Application& app, TextView path) {
  Guarded([&] {
    app.machine.files.Attributes(path);
    app.machine.files.SetAttributes(path, kNormalFile);
  });
}

void CopyFolders(Application& app, TextView source, TextView destination, TextView last) {
  const std::size_t slash = source.rfind(u'\\');
  const Text parent = FolderWithoutTail(source.substr(0, slash + 1));
  const TextView pattern = source.substr(slash + 1);
  FolderCopy copy(app, last.empty() ? Text() : JoinPath(destination, last));
  NotingFailures(app, [&] {
    for (const Text& name : app.machine.files.FolderNames(parent)) {
      if (!MatchesPattern(name, pattern)) continue;
      copy.CopyTree(JoinPath(parent, name), JoinPath(destination, name));
    }
    copy.Finish(Text(destination));
  });
}

FileText ReadFileText(Application& app, const Text& path) {
  FileText text;
  NotingFailures(app, [&] {
    const auto stamp = app.machine.files.Stamp(path);
    if (stamp) text = ReadFollowed(app, path, *stamp);
  });
  return text;
}

FileText ReadFollowed(Application& app, const Text& path, const FileStamp& stamp) {
  if (stamp.Size == 0) return {};
  const auto file = app.machine.files.Open(path);
  FileText text(file->Size(), '\0');
  std::optional<ReadProgress> progress;
  Guarded([&] { progress.emplace(app, file->Size()); });
  const std::size_t chunk = std::max(1u, app.State.ReadChunkSize);
  for (std::size_t at = 0; at < text.size(); at += chunk) {
    const auto block = std::span(text).subspan(at, std::min(chunk, text.size() - at));
    if (file->ReadAt(at, block) != block.size()) throw PlatformError(u"read", path, kReadFault);
    if (progress) progress->Advance();
  }
  return text;
}

bool WriteFileText(Application& app, TextView path, FileTextView text) {
  if (text.empty()) return true;
  try {
    WriteWhole(app.machine.files, path, text);
    return true;
  } catch (const PlatformError& error) {
    TellCantWrite(app, path, error);
    return false;
  }
}

void TellCantWrite(Application& app, TextView path, const PlatformError& error) {
  NoteFailure(app, error);
  if (app.Unwritten) {
    std::vector<int>& told = app.Unwritten->Causes;
    if (std::ranges::find(told, error.Code) != told.end()) {
      app.Unwritten->Others.push_back(Text(path) + u": " + SystemErrorText(error.Code));
      return;
    }
    told.push_back(error.Code);
  }
  app.machine.windows.ShowMessage(
      u"Can't write to File " + Text(path) + u"!!!  This File is Corrupted or Missing!", u"",
      BoxIcon::Critical);
}

void TellingTogether(Application& app, const std::function<void()>& run) {
  const auto tellOthers = [&] {
    const std::vector<Text> others = std::exchange(app.Unwritten, std::nullopt)->Others;
    if (others.empty()) return;
    app.machine.windows.ShowMessage(u"These Files can't be written either:\n" + FirstLines(others),
                                    u"", BoxIcon::Critical);
  };
  app.Unwritten.emplace();
  try {
    run();
  } catch (...) {
    tellOthers();
    throw;
  }
  tellOthers();
}

void PlaySoundFX(Application& app, TextView file, unsigned flags) {
  if (app.State.SoundFX) app.machine.sound.Play(file, flags);
}

void PlayEffect(Application& app, TextView name, unsigned flags) {
  PlaySoundFX(app, app.ProgramFolder + u"\\Sfx\\" + Text(name), flags);
}

Text FailureLine(const Application& app, std::size_t from) {
  if (app.Failures.size() <= from) return {};
  Text line = app.Failures[from].Words;
  const std::size_t more = app.Failures.size() - from - 1;
  if (more > 0) line += u" (and " + TextFromUtf8(std::to_string(more)) + u" more)";
  return line;
}

void ShowFailures(Application& app) {
  if (!app.Failures.empty()) app.shell->ShowStatus(FailureLine(app));
}

bool RequireGame(Application& app) {
  if (!app.State.GamePath.empty()) return true;
  NoteFailure(app, RaisedError(u"Game", u"No game's folder is known: choose it in the options."));
  app.dialogue.PacMsg(u"Nothing has been done: the Game's Folder isn't known!!!", Title::Critical);
  return false;
}

void NoteFailure(Application& app, Failure failure) {
  app.Failures.push_back(std::move(failure));
  ShowFailures(app);
}

void NoteFailure(Application& app, const PlatformError& error) {
  NoteFailure(app, Failure{Words(error), true, error.Code});
}

void NoteFailure(Application& app, const RaisedError& error) {
  NoteFailure(app, Failure{WordsOf(error), error.SystemCode != 0, error.SystemCode});
}

void NoteFailure(Application& app, const RaisedError& error, TextView file) {
  NoteFailure(app, Naming(file, error));
}

RaisedError Naming(TextView file, const RaisedError& error) {
  RaisedError named = error;
  if (error.Description.find(file) == Text::npos) {
    named.Description = Text(file) + u": " + error.Description;
  }
  return named;
}

bool IsDiskFull(const Application& app) {
  return !app.Failures.empty() && app.Failures.back().Code == kDiskFull;
}

Text helper_TrimNull(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  text = text.substr(first, text.find_last_not_of(u' ') - first + 1);
  return Text(text.substr(0, text.find(u'\0')));
}

Text helper_Win32ErrorText(std::optional<std::int32_t> errorCode) {
  const Text words = SystemErrorText(errorCode.value_or(LastSystemError()));
  return words.empty() ? Text(u"Unknown Win32 Error.") : helper_TrimNull(words);
}

}  // namespace tarvo
