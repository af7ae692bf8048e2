#include "state/KnownGames.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <string>

#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/HostMachine.h"
#include "platform/Windows.h"
#include "state/StartUp.h"
#include "text/LetterCase.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr int kDeepest = 3;

/// Below these of a drive no game is installed, and much else lies there.
constexpr TextView kNoPlaceForGames[] = {u"windows", u"users", u"programdata", u"$recycle.bin"};

class Search {
 public:
  explicit Search(Application& app) : app_(app) {}

  /// Gives true for a game.
  bool Take(const Text& folder) {
    if (!HoldsGame(app_, folder)) return false;
    Guarded([&] {
      if (known_.insert(FoldCase(app_.machine.files.RealPath(folder))).second) {
        games_.push_back(folder);
      }
    });
    return true;
  }

  void Below(const Text& folder, int depth) {
    std::vector<Text> names;
    Guarded([&] { names = app_.machine.files.FolderNames(folder); });
    for (const Text& name : names) {
      const bool isNoPlace = depth == 1 && std::ranges::find(kNoPlaceForGames, FoldCase(name)) !=
                                               std::end(kNoPlaceForGames);
      const Text child = JoinPath(folder, name);
      if (!isNoPlace && !Take(child) && depth < kDeepest) Below(child, depth + 1);
    }
  }

  std::vector<Text> Games() && { return std::move(games_); }

 private:
  Application& app_;
  std::vector<Text> games_;
  std::set<Text> known_;
};

/// "%20" as the byte that it stands for.
std::string Decoded(std::string_view address) {
  std::string text;
  for (std::size_t at = 0; at < address.size(); ++at) {
    unsigned char byte = 0;
    const char* const digits = address.data() + at + 1;
    const bool isCode = address[at] == '%' && address.size() - at > 2 &&
                        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    text += isCode ? static_cast<char>(byte) : address[at];
    if (isCode) at += 2;
  }
  return text;
}

/// True for a path that begins at a root.
bool IsWhole(TextView path) {
  return path.starts_with(u'/') || path.starts_with(u'\\') || path.substr(0, 2).ends_with(u':');
}

}  // namespace

bool HoldsGame(Application& app, const Text& folder) {
  bool holds = false;
  Guarded([&] { holds = app.machine.files.FileExists(JoinPath(folder, kGameFile)); });
  return holds;
}

std::vector<Text> KnownGames(Application& app) {
  Search search(app);
  for (const Text& folder : RegisteredGames(app)) search.Take(FolderWithoutTail(folder));
  for (const Text& drive : app.machine.registry.ProgramDrives()) search.Below(drive, 1);
  return std::move(search).Games();
}

Text FolderOfLine(Application& app, TextView line) {
  constexpr TextView kAround = u" \t\r\n\"'";
  const std::size_t first = std::min(line.find_first_not_of(kAround), line.size());
  Text path(line.substr(first, line.find_last_not_of(kAround) + 1 - first));
  constexpr TextView kAddress = u"file://";
  if (path.starts_with(kAddress)) {
    path = TextFromUtf8(Decoded(Utf8FromText(path.substr(kAddress.size()))));
    if (path.substr(0, 3).ends_with(u':')) path.erase(0, 1);  // "/C:/games"
  }
  if (path == u"~" || path.starts_with(u"~/")) {
    path = app.machine.windows.HomeFolder() + path.substr(1);
  }
  if (!IsWhole(path)) return path;
  if (path.substr(0, 2).ends_with(u':')) std::ranges::replace(path, u'/', u'\\');
  path = GamePathFromArgument(Utf8FromText(path));
  const bool isProgram = EqualIgnoringCase(BareName(path), kGameFile);
  return isProgram ? FolderWithoutTail(path.substr(0, path.rfind(u'\\'))) : path;
}

}  // namespace tarvo
