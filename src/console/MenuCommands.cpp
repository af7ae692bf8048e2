#include "console/Commands.h"
#include "console/GameTools.h"
#include "quickbattle/QBMenus.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// All menus by their index.
std::vector<Text> MenuNames(const frmGameTools& screen) {
  std::vector<Text> names(kBuiltInQBMenus.begin(), kBuiltInQBMenus.end());
  for (std::size_t row = 0; row < screen.lstSpecies.Count(); ++row) {
    names.push_back(screen.lstSpecies.Item(row));
  }
  return names;
}

/// Ends a command whose result is all that it told.
int FinishWithMessages(Session& session) {
  const std::vector<Text>& messages = session.dialogue.Messages();
  if (!messages.empty()) session.output.Result(messages, JsonTexts(messages));
  return session.Finish(true);
}

int RunMenus(Session& session) {
  if (!session.RequireGame()) return session.Finish(false);
  const std::vector<Text> names = MenuNames(OpenGameTools(session, true));
  auto menus = nlohmann::json::array();
  for (std::size_t index = 0; index < names.size(); ++index) {
    menus.push_back({{"index", index},
                     {"name", Json(names[index])},
                     {"custom", index >= kBuiltInQBMenus.size()}});
  }
  session.output.Result(names, menus);
  return session.Finish(true);
}

/// `typed`: the name without " Ships", as the question of the desktop program takes it.
int RunAddMenu(Session& session, const std::string& typed) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  session.dialogue.TypeNext(TextFromUtf8(typed));
  session.Changing([&] { OpenGameTools(session).AddQBMenu(); });
  return FinishWithMessages(session);
}

int RunDeleteMenu(Session& session, const std::string& typed) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  session.Changing([&] {
    frmGameTools& screen = OpenGameTools(session, true);
    if (!session.app.Failures.empty()) return;
    const std::vector<Text> names = MenuNames(screen);
    const Text name = TextFromUtf8(typed);
    // The menus that can be deleted are the last ones; one of them may have a built-in one's name.
    const auto found = std::ranges::find(names.rbegin(), names.rend(), name);
    if (found == names.rend()) return session.Complain(u"There is no Quick Battle menu " + name);
    screen.SelectedMenu = static_cast<std::int16_t>(names.rend() - found - 1);
    screen.DeleteQBMenu();
  });
  return FinishWithMessages(session);
}

}  // namespace

void AddMenuCommands(CLI::App& parser, Command& chosen) {
  const auto typed = std::make_shared<std::string>();
  const auto add = [&](const char* name, const char* about, const char* argument, auto run) {
    AddCommand(parser, chosen, name, about,
               [typed, run](Session& session) { return run(session, *typed); })
        ->add_option("NAME", *typed, argument)
        ->required();
  };
  AddCommand(parser, chosen, "menus", "List the Quick Battle menus", RunMenus);
  add("add-menu", "Make a Quick Battle menu", "The menu's name; \" Ships\" is put behind it",
      RunAddMenu);
  add("delete-menu", "Delete a Quick Battle menu and move its ships to \"Other Ships\"",
      "The menu's name, as `menus` lists it", RunDeleteMenu);
}

}  // namespace tarvo
