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

/// The strings in file order. A database that the game's loader would refuse is read all the same,
/// and the user is told.
std::vector<TGLString> ReadAnyDatabase(Session& session, const Text& path) {
  TGLFileRep rep(session.app.machine.files);
  Text refusal;
  try {
    std::vector<TGLString> strings;
    for (const auto& entry : rep.ReadFile(path)) strings.push_back(*entry);
    return strings;
  } catch (const RaisedError& error) {
    if (error.SystemCode != 0) throw;
    refusal = error.Description;
  }
  std::vector<TGLString> strings = rep.ReadEntries(path);
  session.output.Message(u"Information",
                         path + u": " + refusal + u"  \"tgl repair\" makes a loadable copy.");
  return strings;
}

int RunShow(Session& session, const Text& path) {
  const bool read = OnDatabase(session, path, [&] {
    std::vector<Text> lines;
    auto values = nlohmann::json::array();
    for (const TGLString& string : ReadAnyDatabase(session, path)) {
      lines.push_back(Escaped(string.Name) + u"\t" + Escaped(string.MediaFilename) + u"\t" +
                      Escaped(string.Data));
      values.push_back({{"name", Json(string.Name)},
                        {"data", Json(string.Data)},
                        {"media", Json(string.MediaFilename)}});
    }
    session.output.Result(lines, values);
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
  TGLRepaired repaired;
  const bool done =
      OnDatabase(session, from, [&] { repaired = RepairTGLStrings(rep.ReadEntries(from)); }) &&
      OnDatabase(session, to, [&] { rep.WriteFile(to, &repaired.Strings, true); });
  if (!done) return session.Finish(false);
  std::vector<Text> lines;
  auto dropped = nlohmann::json::array();
  for (const TGLDropped& drop : repaired.Dropped) {
    lines.push_back(u"\"" + Escaped(drop.String.Name) + u"\": " + drop.Why);
    dropped.push_back({{"name", Json(drop.String.Name)}, {"why", Json(drop.Why)}});
  }
  session.output.Result(lines, {{"kept", repaired.Strings.Count()}, {"dropped", dropped}});
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
