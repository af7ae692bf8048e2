#include <algorithm>

#include "console/Commands.h"
#include "packages/PackageCheck.h"
#include "packages/PackageFormat.h"
#include "packages/frmPackager.h"
#include "state/CommonUtilities.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

Text PackagePath(const Session& session, const Text& name) {
  return session.app.ProgramFolder + u"\\Tarvos\\" + name + u".Tarvo";
}

/// False, and said, when there is no package of that name.
bool RequirePackage(Session& session, const Text& name) {
  bool stands = false;
  const auto look = [&] {
    stands = session.app.machine.files.FileExists(PackagePath(session, name));
  };
  if (!NotingFailures(session.app, look)) return false;
  if (stands) return true;
  session.dialogue.PacMsg(u"That is not a Valid Tarvo File Name!!!", Title::Critical);
  return false;
}

/// An entry as typed, in the form of a package: one backslash in front and between its parts.
Text AsEntry(Text typed) {
  for (char16_t& unit : typed) {
    if (unit == u'/') unit = u'\\';
  }
  const std::size_t first = typed.find_first_not_of(u'\\');
  const std::size_t last = typed.find_last_not_of(u'\\');
  if (first == Text::npos) return u"\\";
  return u"\\" + typed.substr(first, last - first + 1);
}

/// True when one folder is the other, or lies in it. Both are real paths.
bool IsIn(const Text& folder, const Text& outer) {
  return folder == outer || folder.starts_with(outer.ends_with(u'\\') ? outer : outer + u"\\");
}

/// Gathers the entries of a `pack` command. Throws PlatformError for what can't be listed or isn't
/// there.
class EntryCollector {
 public:
  explicit EntryCollector(Session& session)
      : session_(session), files_(session.app.machine.files) {}

  void Add(const Text& typed) {
    const Text entry = AsEntry(typed);
    const Application& app = session_.app;
    const Text& root = IsTGLEntry(entry) ? app.ProgramFolder : app.State.GamePath;
    if (files_.FolderExists(JoinPath(app.State.GamePath, entry))) {
      AddFolder(app.State.GamePath, entry, false);
    } else if (files_.FolderExists(JoinPath(app.ProgramFolder, entry))) {
      AddFolder(app.ProgramFolder, entry, true);
    } else if (files_.FileExists(JoinPath(root, entry))) {
      entries.push_back(entry);
    } else {
      throw PlatformError(u"read", JoinPath(root, entry), kNoSuchFile);
    }
  }

  std::vector<Text> entries;

 private:
  /// A folder of one root can only give the files whose entries lead back to that root.
  void AddFolder(const Text& root, const Text& folder, bool tgl) {
    const Text path = JoinPath(root, folder);
    const Text real = files_.RealPath(path);
    const auto leadsBack = [&](const Text& outer) { return IsIn(outer, real); };
    if (std::ranges::any_of(open_, leadsBack)) {
      session_.output.Say(folder + u": left out, since it leads back to where it lies");
      return;
    }
    open_.push_back(real);
    const Text prefix = folder == u"\\" ? folder : folder + u"\\";
    for (const Text& name : files_.FileNames(path)) {
      if (IsTGLEntry(name) == tgl) {
        entries.push_back(prefix + name);
      } else {
        session_.Complain(prefix + name + u": left out, since files that end in \"TGL\" come " +
                          u"from the program folder and all others from the game's");
      }
    }
    for (const Text& name : files_.FolderNames(path)) AddFolder(root, prefix + name, tgl);
    open_.pop_back();
  }

  Session& session_;
  Files& files_;
  std::vector<Text> open_;  ///< The real paths of the folders that are being walked.
};

int RunGame(Session& session) {
  if (!session.RequireGame()) return session.Finish(false);
  const Text& folder = session.app.State.GamePath;
  const Text source = session.GameSource();
  session.output.Result({folder, source}, {{"folder", Json(folder)}, {"source", Json(source)}});
  return session.Finish(true);
}

/// `typed`: paths below their roots with slashes of either kind; a folder stands for all files
/// below it, sorted.
int RunPack(Session& session, const Text& name, const std::vector<std::string>& typed) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  EntryCollector collector(session);
  const bool isWhole = NotingFailures(session.app, [&] {
    for (const std::string& entry : typed) collector.Add(TextFromUtf8(entry));
  });
  if (!isWhole) return session.Finish(false);
  auto& screen = session.app.Screen<frmPackager>();
  session.Follow(screen.TarvoProgress);
  screen.cboFileName.SetText(name);
  for (const Text& entry : collector.entries) {
    screen.PackageList += entry + u"\r\n";
    screen.lstFile.Add(BareName(entry));
  }
  screen.MakePackage();
  return session.FinishWithMessage();
}

int RunList(Session& session, const Text& name) {
  if (!RequirePackage(session, name)) return session.Finish(false);
  auto& screen = session.app.Screen<frmPackager>();
  screen.cboFileName.SetText(name);
  screen.ListPackage();
  const std::vector<Text> entries = EntriesOf(screen.PackageList);
  if (session.app.Failures.empty()) session.output.Result(entries, JsonTexts(entries));
  return session.Finish(true);
}

int RunVerify(Session& session, const Text& name) {
  if (!RequirePackage(session, name)) return session.Finish(false);
  PackageReport report;
  const bool read = NotingFailures(session.app, [&] {
    report = CheckPackage(*session.app.machine.files.Open(PackagePath(session, name)));
  });
  if (read) {
    session.output.Result(report.Findings, {{"entries", report.Entries},
                                            {"bytes", report.Bytes},
                                            {"findings", JsonTexts(report.Findings)}});
  }
  return session.Finish(report.Findings.empty());
}

int RunInstall(Session& session, const Text& name) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  session.PrepareGameTexts();
  auto& screen = session.app.Screen<frmPackager>();
  session.Follow(screen.TarvoProgress);
  screen.cboFileName.SetText(name);
  session.Changing([&] { screen.InstallPackage(); });
  return session.FinishWithMessage();
}

}  // namespace

void AddPackageCommands(CLI::App& parser, Command& chosen) {
  struct Arguments {
    std::string name;
    std::vector<std::string> entries;
  };
  const auto typed = std::make_shared<Arguments>();
  const auto add = [&](const char* name, const char* about, auto run) {
    CLI::App* command = AddCommand(parser, chosen, name, about, [typed, run](Session& session) {
      return run(session, TextFromUtf8(typed->name));
    });
    command->add_option("NAME", typed->name, "The package's name, without .Tarvo")->required();
    return command;
  };
  AddCommand(parser, chosen, "game", "Find the game", RunGame);
  add("pack", "Make a package",
      [typed](Session& session, const Text& name) {
        return RunPack(session, name, typed->entries);
      })
      ->add_option("ENTRY", typed->entries, "A file or folder below its root")
      ->required();
  add("list", "List a package", RunList);
  add("verify", "Read a package through", RunVerify);
  add("install", "Install a package into the game", RunInstall);
}

}  // namespace tarvo
