#include "console/Commands.h"
#include "platform/Files.h"
#include "shiptgl/frmTGLTools.h"
#include "state/CommonUtilities.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// A command-line option for each text of a definition.
struct TextOption {
  const char* Name;
  const char* About;
  TextBox frmTGLTools::*Field;
};

constexpr TextOption kTextOptions[] = {
    {"--long-name", "The name that the game shows", &frmTGLTools::txtLongName},
    {"--description", "What the ship is", &frmTGLTools::txtDescription},
    {"--weapons", "Its weapons", &frmTGLTools::txtWeapons},
    {"--shields", "Its shield rating", &frmTGLTools::txtShields},
    {"--hull", "Its hull rating", &frmTGLTools::txtHull},
    {"--tactics", "How to fight with it", &frmTGLTools::txtTactics},
};

struct DefineArguments {
  std::string ship;
  std::map<const TextOption*, std::string> texts;
};

int RunDefine(Session& session, const DefineArguments& arguments) {
  session.PrepareProgramFolder();
  auto& screen = session.app.Screen<frmTGLTools>();
  screen.cboShipNames.SetText(TextFromUtf8(arguments.ship));
  for (const auto& [option, text] : arguments.texts) {
    (screen.*option->Field).SetText(TextFromUtf8(text));
  }
  screen.SaveShipTGL();
  return session.FinishWithMessage();
}

/// Selects the definition of a ship; false, and said, when there is none.
bool SelectDefinition(Session& session, frmTGLTools& screen, const Text& ship) {
  for (std::size_t row = 0; row < screen.File2.Count(); ++row) {
    if (screen.File2.Item(row) != ship + u".TGL") continue;
    screen.File2.SetSelected(row, true);
    return true;
  }
  session.Complain(u"There is no ship definition \"" + ship + u"\".");
  return false;
}

int RunMerge(Session& session, const std::vector<std::string>& ships, bool all) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  session.PrepareGameTexts();
  auto& screen = session.app.Screen<frmTGLTools>();
  session.Follow(screen.ProgressBar);
  for (std::size_t row = 0; all && row < screen.File2.Count(); ++row) {
    screen.File2.SetSelected(row, true);
  }
  if (!session.app.Failures.empty()) return session.Finish(false);
  for (const std::string& ship : ships) SelectDefinition(session, screen, TextFromUtf8(ship));
  session.Changing([&] { screen.UpdateShipTGLs(); });
  for (const Text& plugin : screen.UnpatchedPlugins) {
    session.output.Message(u"Information", plugin + u" keeps its own description.");
  }
  return session.Finish(true);
}

}  // namespace

void AddShipTGLCommands(CLI::App& parser, Command& chosen) {
  const auto define = std::make_shared<DefineArguments>();
  CLI::App* command =
      AddCommand(parser, chosen, "define", "Save a ship definition",
                 [define](Session& session) { return RunDefine(session, *define); });
  command->add_option("SHIP", define->ship, "The ship's name")->required();
  for (const TextOption& option : kTextOptions) {
    const auto take = [define, &option](const std::string& text) { define->texts[&option] = text; };
    auto* added = command->add_option_function<std::string>(option.Name, take, option.About);
    if (option.Field == &frmTGLTools::txtLongName) added->required();
  }

  struct MergeArguments {
    std::vector<std::string> ships;
    bool all = false;
  };
  const auto merge = std::make_shared<MergeArguments>();
  command = AddCommand(
      parser, chosen, "merge", "Merge ship definitions into the game and patch the ships' plug-ins",
      [merge](Session& session) { return RunMerge(session, merge->ships, merge->all); });
  CLI::Option_group* which = command->add_option_group("Which");
  which->add_option("SHIP", merge->ships, "The ship's name");
  which->add_flag("--all", merge->all, "Every definition");
  which->require_option(1);
}

}  // namespace tarvo
