#include <optional>

#include "console/Commands.h"
#include "platform/HostMachine.h"
#include "state/CommonUtilities.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLFileRep.h"
#include "tgl/TGLRepair.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

Text Escaped(TextView text) {
  constexpr TextView kUnits = u"\n\r\t\\";
  constexpr TextView kLetters = u"nrt\\";
  Text escaped;
  for (const char16_t unit : text) {
    const std::size_t at = kUnits.find(unit);
    if (at != TextView::npos) escaped += u'\\';
    escaped += at == TextView::npos ? unit : kLetters[at];
  }
  return escaped;
}

/// Runs a step on a database; a failure is noted with the file.
template <class Step>
bool OnDatabase(Session& session, const Text& path, Step step) {
  try {
    step();
    return true;
  } catch (const RaisedError& error) {
    NoteFailure(session.app, error, path);
  } catch (const PlatformError& error) {
    NoteFailure(session.app, error);
  }
  return false;
}

/// Tells the user of a database that the game's loader would refuse. What can't be read is thrown.
void TellOfRefusal(Session& session, TGLFileRep& rep, const Text& path) {
  try {
    rep.ReadFile(path);
  } catch (const RaisedError& error) {
    if (error.SystemCode != 0) throw;
    session.output.Message(u"Information", path + u": " + error.Description +
                                               u"  \"tgl repair\" makes a loadable copy.");
  }
}

int RunShow(Session& session, const Text& path) {
  const bool read = OnDatabase(session, path, [&] {
    TGLFileRep rep(session.app.machine.files);
    const TGLEntries entries = rep.ReadEntries(path);
    TellOfRefusal(session, rep, path);
    ResultList list(session.output);
    for (std::int32_t place = 1; place <= entries.Count(); ++place) {
      const TGLString string = entries.At(place);
      list.Add(Escaped(string.Name) + u"\t" + Escaped(string.MediaFilename) + u"\t" +
                   Escaped(string.Data),
               {{"name", Json(string.Name)},
                {"data", Json(string.Data)},
                {"media", Json(string.MediaFilename)}});
    }
  });
  return session.Finish(read);
}

int RunRewrite(Session& session, const Text& from, const Text& to) {
  TGLFile file(session.app.machine.files);
  file.SetFilename(from);
  const bool done = OnDatabase(session, from, [&] { file.Load(); }) &&
                    OnDatabase(session, to, [&] { file.Update(to, true); });
  return session.Finish(done);
}

int RunRepair(Session& session, const Text& from, const Text& to) {
  TGLFileRep rep(session.app.machine.files);
  std::optional<TGLRepair> repair;
  const bool done = OnDatabase(session, from, [&] { repair.emplace(rep.ReadEntries(from)); }) &&
                    OnDatabase(session, to, [&] { rep.WriteFile(to, &repair->Strings(), true); });
  if (!done) return session.Finish(false);
  ResultList list(session.output, "{\"dropped\":[",
                  "],\"kept\":" + std::to_string(repair->Strings().Count()) + "}");
  for (std::size_t i = 0; i < repair->DroppedCount(); ++i) {
    const TGLRepair::Dropped dropped = repair->DroppedAt(i);
    list.Add(u"\"" + Escaped(dropped.Name) + u"\": " + dropped.Why,
             {{"name", Json(dropped.Name)}, {"why", Json(dropped.Why)}});
  }
  return session.Finish(true);
}

int RunHash(Session& session, const Text& name) {
  const Text hash = TGLStringHasher().HashString(name);
  session.output.Result({hash}, Json(hash));
  return session.Finish(true);
}

}  // namespace

void AddTGLCommands(CLI::App& parser, Command& chosen) {
  CLI::App* group = parser.add_subcommand("tgl", "Work on a text database")->fallthrough();
  group->require_subcommand(1);
  struct Arguments {
    std::string from, to, name;
  };
  const auto typed = std::make_shared<Arguments>();
  const auto from = [typed] { return GamePathFromArgument(typed->from); };
  const auto to = [typed] { return GamePathFromArgument(typed->to); };
  AddCommand(*group, chosen, "show", "Show the strings in file order",
             [from](Session& session) { return RunShow(session, from()); })
      ->add_option("FILE", typed->from, "A text database")
      ->required();
  const auto addCopy = [&](const char* name, const char* about, auto run) {
    CLI::App* command = AddCommand(*group, chosen, name, about, [from, to, run](Session& session) {
      return run(session, from(), to());
    });
    command->add_option("IN", typed->from, "A text database")->required();
    command->add_option("OUT", typed->to, "Where the copy goes; a file there is replaced")
        ->required();
  };
  addCopy("rewrite", "Load a text database and write it anew", RunRewrite);
  addCopy("repair", "Write a loadable copy of a text database that the loader refuses", RunRepair);
  AddCommand(*group, chosen, "hash", "The hash of a name",
             [typed](Session& session) { return RunHash(session, TextFromUtf8(typed->name)); })
      ->add_option("NAME", typed->name, "The name of a string")
      ->required();
}

}  // namespace tarvo
