#include "state/CommonUtilities.h"

#include <algorithm>
#include <span>

#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "state/ReadProgress.h"
#include "state/Shell.h"
#include "text/LetterCase.h"
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
        Try([&] { CopyOneFile(files, JoinPath(from, name), JoinPath(to, name)); });
      }
    }
    for (const Text& name : folders) CopyTree(JoinPath(from, name), JoinPath(to, name));
  }

  void Finish() {
    if (!complete_ || lastSource_.empty()) return;
    Try([&] { CopyOneFile(app_.machine.files, lastSource_, last_); });
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

/// Appends the next chunk of the file to `text`; false at its end.
bool ReadChunk(FileReader& file, std::uint32_t chunkSize, FileText& text) {
  const std::size_t before = text.size();
  const std::uint64_t left = file.Size() - std::min<std::uint64_t>(file.Size(), before);
  const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(chunkSize, left));
  text.resize(before + wanted);
  std::size_t got = 0;
  try {
    got = file.ReadAt(before, std::span(text).subspan(before));
  } catch (const PlatformError&) {
    text.resize(before);
    throw;
  }
  text.resize(before + got);
  return got > 0;
}

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

void Note(Application& app, Failure failure) {
  app.Failures.push_back(std::move(failure));
  Text line = app.Failures.front().Words;
  const std::size_t more = app.Failures.size() - 1;
  if (more > 0) line += u" (and " + TextFromUtf8(std::to_string(more)) + u" more)";
  app.shell->ShowStatus(line);
}

/// Reads as much of the file as can be read, driving the bar of CurrentScreen; `failure` becomes
/// what the machine ended it with. Changes nothing on the disk.
FileText ReadWhatCanBe(Application& app, TextView path, std::optional<PlatformError>& failure) {
  FileText text;
  Guarded([&] {
    try {
      const auto file = app.machine.files.Open(path);
      ReadProgress progress(app, file->Size());
      const std::uint32_t chunk = std::max(1u, app.State.ReadChunkSize);
      while (ReadChunk(*file, chunk, text) && progress.Advance()) {
      }
    } catch (const PlatformError& error) {
      failure = error;
    }
  });
  return text;
}

}  // namespace

TextView CheckFile(Application& app, TextView path) {
  if (app.machine.files.FileExists(path)) return kFileOk;
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
    copy.Finish();
  });
}

FileText ReadFileText(Application& app, TextView path) {
  Files& files = app.machine.files;
  const bool hasBar = HasReadBar(app);
  if (!hasBar && !files.FileExists(path)) Guarded([&] { files.MakeEmptyFile(path); });
  std::optional<PlatformError> failure;
  FileText text = ReadWhatCanBe(app, path, failure);
  // A bar refuses a file of no bytes.
  if (hasBar && text.empty() && !failure) {
    Guarded([&] {
      if (files.FileSize(path) == 0) files.Remove(path);
    });
  }
  return text;
}

FileText LookAtFile(Application& app, const Text& path) {
  return LookAtFile(app, path, app.machine.files.Stamp(path));
}

FileText LookAtFile(Application& app, const Text& path, const std::optional<FileStamp>& stamp) {
  if (!stamp || stamp->Size == 0) return {};
  std::optional<PlatformError> failure;
  FileText text = ReadWhatCanBe(app, path, failure);
  if (failure) NoteFailure(app, *failure);
  return text;
}

FileText LookAtHead(Application& app, const Text& path, std::size_t bytes) {
  FileText text(bytes, '\0');
  std::size_t got = 0;
  NotingFailures(app, [&] { got = app.machine.files.Open(path)->ReadAt(0, std::span(text)); });
  text.resize(got);
  return text;
}

void WriteFileText(Application& app, TextView path, FileTextView text) {
  if (text.empty()) return;
  try {
    const auto file = app.machine.files.Replace(path);
    file->Write(text);
    file->Commit();
  } catch (const PlatformError& error) {
    TellCantWrite(app, path, error);
  }
}

void TellCantWrite(Application& app, TextView path, const PlatformError& error) {
  NoteFailure(app, error);
  app.machine.windows.ShowMessage(
      u"Can't write to File " + Text(path) + u"!!!  This File is Corrupted or Missing!", u"",
      BoxIcon::Critical);
}

void PlaySoundFX(Application& app, TextView file, unsigned flags) {
  if (app.State.SoundFX) app.machine.sound.Play(file, flags);
}

void PlayEffect(Application& app, TextView name, unsigned flags) {
  PlaySoundFX(app, app.ProgramFolder + u"\\Sfx\\" + Text(name), flags);
}

void NoteFailure(Application& app, const PlatformError& error) {
  Note(app, {Words(error), true});
}

void NoteFailure(Application& app, const RaisedError& error) {
  Note(app, {WordsOf(error), error.SystemCode != 0});
}

void NoteFailure(Application& app, const RaisedError& error, TextView file) {
  Note(app, {Text(file) + u": " + WordsOf(error), error.SystemCode != 0});
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
