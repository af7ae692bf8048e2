#include <algorithm>

#include "console/Commands.h"
#include "console/GameTools.h"
#include "platform/Files.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

using Names = std::vector<std::string>;

/// The row of `name` in the list, exactly as it is spelled.
std::optional<std::size_t> RowOf(const ListBox& list, TextView name) {
  for (std::size_t row = 0; row < list.Count(); ++row) {
    if (list.Item(row) == name) return row;
  }
  return {};
}

bool Select(ListBox& list, TextView name) {
  const auto row = RowOf(list, name);
  if (row) list.SetSelected(*row, true);
  return row.has_value();
}

void ComplainOfShip(Session& session, const Text& ship) {
  session.Complain(u"There is no ship " + ship);
}

void AddLines(std::vector<Text>& lines, TextView text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u"\r\n"), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 2, text.size()));
  }
}

nlohmann::json JsonReferences(const std::vector<CheckedReference>& references) {
  auto array = nlohmann::json::array();
  for (const CheckedReference& checked : references) {
    nlohmann::json compiled;
    if (checked.Answers.Compiled) compiled = checked.Answers.Compiled->Found;
    array.push_back({{"label", Json(checked.Reference.Label)},
                     {"path", Json(checked.Reference.Path)},
                     {"found", checked.Answers.File.Found},
                     {"pyc", compiled}});
  }
  return array;
}

int RunCheck(Session& session, const Names& ships) {
  if (!session.RequireGame()) return session.Finish(false);
  const Text& game = session.app.State.GamePath;
  frmGameTools& screen = OpenGameTools(session);
  screen.ListShips();
  const auto scripts = screen.ShipScripts();
  bool inOrder = true;
  std::vector<Text> lines;
  auto reports = nlohmann::json::array();
  for (const std::string& typed : ships) {
    const Text ship = TextFromUtf8(typed);
    const auto script = scripts.find(ship);
    if (script == scripts.end()) {
      ComplainOfShip(session, ship);
      continue;
    }
    const auto references = screen.CheckShipScript(script->second);
    const int errors = session.app.State.MissingFileCount;
    inOrder = inOrder && errors == 0;
    AddLines(lines, CheckReport(game, references));
    AddLines(lines, CheckVerdict(errors));
    reports.push_back(
        {{"ship", typed}, {"references", JsonReferences(references)}, {"errors", errors}});
  }
  session.output.Result(lines, reports);
  return session.Finish(inOrder);
}

/// The menu of a ship as the screen names it; empty when its plug-in names none.
Text MenuOf(frmGameTools& screen, const Text& ship) {
  screen.SelectedMenu = -1;
  screen.FindShipMenu(ship);
  return screen.SelectedMenu < 0 ? Text() : screen.MenuCaption(screen.SelectedMenu);
}

int RunShips(Session& session) {
  if (!session.RequireGame()) return session.Finish(false);
  frmGameTools& screen = OpenGameTools(session);
  screen.ListShips();
  std::vector<Text> lines;
  nlohmann::json result = {{"enabled", nlohmann::json::array()},
                           {"disabled", nlohmann::json::array()}};
  for (std::size_t row = 0; row < screen.lstEnabled.Count(); ++row) {
    const Text& ship = screen.lstEnabled.Item(row);
    const Text menu = MenuOf(screen, ship);
    lines.push_back(u"enabled " + ship + (menu.empty() ? u"" : u" " + menu));
    result["enabled"].push_back({{"name", Json(ship)}, {"menu", Json(menu)}});
  }
  for (std::size_t row = 0; row < screen.lstDisabled.Count(); ++row) {
    const Text& ship = screen.lstDisabled.Item(row);
    lines.push_back(u"disabled " + ship);
    result["disabled"].push_back(Json(ship));
  }
  session.output.Result(lines, result);
  return session.Finish(true);
}

/// Selects the ships in the lists where `enabled` and `disabled` say that the operation works, and
/// runs it if there is one. A ship that is in its state already is left alone.
int ChangeShips(Session& session, const Names& ships, bool enabled, bool disabled,
                void (frmGameTools::*operation)()) {
  if (!session.RequireGame()) return session.Finish(false);
  session.Changing([&] {
    frmGameTools& screen = OpenGameTools(session);
    screen.ListShips();
    if (!session.app.Failures.empty()) return;
    bool any = false;
    for (const std::string& typed : ships) {
      const Text ship = TextFromUtf8(typed);
      if (!RowOf(screen.lstEnabled, ship) && !RowOf(screen.lstDisabled, ship)) {
        ComplainOfShip(session, ship);
        continue;
      }
      if (enabled && Select(screen.lstEnabled, ship)) any = true;
      if (disabled && Select(screen.lstDisabled, ship)) any = true;
    }
    if (any) (screen.*operation)();
  });
  return session.Finish(true);
}

/// The fields of a plug-in as options; what isn't given keeps what the screen begins with.
struct PluginOptions {
  std::string ship;
  std::string menu;
  std::optional<std::string> icon, modName, author, version, sources, comments;
};

void SetField(TextBox& field, const std::optional<std::string>& typed) {
  if (typed) field.SetText(TextFromUtf8(*typed));
}

/// A menu that isn't in the list goes into the plug-in as it is typed.
void PickMenu(ComboBox& box, const Text& menu) {
  const int row = box.RowOf(menu);
  row < 0 ? box.SetText(menu) : box.Pick(static_cast<std::size_t>(row));
}

void MakePlugin(Session& session, const PluginOptions& typed) {
  frmGameTools& screen = OpenGameTools(session);
  screen.ListShips();
  screen.cboShipName.SetText(TextFromUtf8(typed.ship));
  SetField(screen.txtIconName, typed.icon.value_or(typed.ship));
  SetField(screen.txtModName, typed.modName.value_or(typed.ship));
  SetField(screen.txtAuthor, typed.author);
  SetField(screen.txtVersion, typed.version);
  SetField(screen.txtSources, typed.sources);
  SetField(screen.txtComments, typed.comments);
  PickMenu(screen.cboSpecies, TextFromUtf8(typed.menu));
  screen.MarkFields();
  for (const Text& reason : screen.ReasonsOfMarks()) session.output.Say(reason);
  screen.MakeShipPlugin();
}

int RunShipPlugin(Session& session, const PluginOptions& typed) {
  if (!session.RequireGame()) return session.Finish(false);
  session.Changing([&] { MakePlugin(session, typed); });
  return session.FinishWithMessage();
}

int RunReadPlugin(Session& session, const Text& ship) {
  if (!session.RequireGame()) return session.Finish(false);
  frmGameTools& screen = OpenGameTools(session);
  screen.ListShips();
  if (!RowOf(screen.lstEnabled, ship)) {
    ComplainOfShip(session, ship);
    return session.Finish(false);
  }
  screen.cboShipName.SetText(ship);
  screen.LoadShipPlugin();
  const std::pair<TextView, Text> fields[] = {
      {u"icon", screen.txtIconName.Text()},    {u"menu", screen.cboSpecies.Text()},
      {u"modName", screen.txtModName.Text()},  {u"author", screen.txtAuthor.Text()},
      {u"version", screen.txtVersion.Text()},  {u"sources", screen.txtSources.Text()},
      {u"comments", screen.txtComments.Text()}};
  std::vector<Text> lines;
  nlohmann::json result;
  for (const auto& [name, value] : fields) {
    lines.push_back(Text(name) + u": " + value);
    result[Utf8FromText(name)] = Json(value);
  }
  if (session.app.Failures.empty()) session.output.Result(lines, result);
  return session.Finish(true);
}

/// Adds a command that takes names of ships.
template <class Run>
void AddShipsCommand(CLI::App& parser, Command& chosen, const char* name, const char* about,
                     Run run) {
  const auto ships = std::make_shared<Names>();
  AddCommand(parser, chosen, name, about,
             [ships, run](Session& session) { return run(session, *ships); })
      ->add_option("SHIP", *ships, "A ship's name, without .py")
      ->required();
}

void AddPluginCommands(CLI::App& parser, Command& chosen) {
  const auto typed = std::make_shared<PluginOptions>();
  CLI::App* make = AddCommand(parser, chosen, "ship-plugin", "Make a ship plug-in",
                              [typed](Session& session) { return RunShipPlugin(session, *typed); });
  make->add_option("SHIP", typed->ship, "The ship's name, without .py")->required();
  make->add_option("--menu", typed->menu, "The Quick Battle menu")->required();
  make->add_option("--icon", typed->icon, "The icon's name; the ship's by default");
  make->add_option("--mod-name", typed->modName, "The mod's name; the ship's by default");
  make->add_option("--author", typed->author, "Who made it");
  make->add_option("--version", typed->version, "Its version");
  make->add_option("--sources", typed->sources, "Where it comes from");
  make->add_option("--comments", typed->comments, "What else there is to say");
  const auto ship = std::make_shared<std::string>();
  AddCommand(parser, chosen, "read-plugin", "Read a ship plug-in back",
             [ship](Session& session) { return RunReadPlugin(session, TextFromUtf8(*ship)); })
      ->add_option("SHIP", *ship, "The ship's name, without .py")
      ->required();
}

}  // namespace

void AddShipCommands(CLI::App& parser, Command& chosen) {
  AddShipsCommand(parser, chosen, "check", "Check what ship scripts name", RunCheck);
  AddCommand(parser, chosen, "ships", "List enabled and disabled ships", RunShips);
  AddShipsCommand(parser, chosen, "enable", "Enable ships", [](Session& session, const Names& s) {
    return ChangeShips(session, s, false, true, &frmGameTools::EnableShips);
  });
  AddShipsCommand(parser, chosen, "disable", "Disable ships", [](Session& session, const Names& s) {
    return ChangeShips(session, s, true, false, &frmGameTools::DisableShips);
  });
  AddShipsCommand(parser, chosen, "delete", "Delete the plug-ins of ships",
                  [](Session& session, const Names& s) {
                    return ChangeShips(session, s, true, true, &frmGameTools::DeleteShips);
                  });
  AddPluginCommands(parser, chosen);
}

}  // namespace tarvo
