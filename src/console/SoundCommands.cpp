#include <charconv>

#include "console/Commands.h"
#include "console/GameTools.h"
#include "sounds/SoundPlugin.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// One --sound WAV,WEAPON,VOLUME.
struct TypedSound {
  std::string wave;
  std::string weapon;  ///< Without the ending for a part of a phaser's sound.
  std::string part;    ///< " Start", " Loop" or nothing.
  int volume = 0;
};

/// Takes ":Start" or ":Loop" off the weapon.
void SplitPart(TypedSound& sound) {
  for (const std::string part : {"Start", "Loop"}) {
    if (!sound.weapon.ends_with(":" + part)) continue;
    sound.weapon.resize(sound.weapon.size() - part.size() - 1);
    sound.part = " " + part;
    return;
  }
}

/// A weapon may hold commas. Throws the parser's error when something is missing or wrong.
TypedSound ParseSound(const std::string& typed) {
  const std::size_t first = typed.find(',');
  const std::size_t last = typed.rfind(',');
  const CLI::ValidationError wrong(
      "--sound", "\"" + typed + "\" is not WAV,WEAPON,VOLUME with a volume of 10 to 100");
  if (first == last) throw wrong;
  TypedSound sound{typed.substr(0, first), typed.substr(first + 1, last - first - 1), {}, 0};
  const char* const end = typed.data() + typed.size();
  const auto number = std::from_chars(typed.data() + last + 1, end, sound.volume);
  const bool isNumber = number.ec == std::errc() && number.ptr == end;
  if (!isNumber || sound.volume < 10 || sound.volume > 100) throw wrong;
  SplitPart(sound);
  if (sound.wave.empty() || sound.weapon.empty()) throw wrong;
  return sound;
}

/// Line breaks as `\n`.
Text OnOneLine(TextView name) {
  Text line;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name[i] == u'\r' && i + 1 < name.size() && name[i + 1] == u'\n') continue;
    line += name[i] == u'\r' || name[i] == u'\n' ? Text(u"\\n") : Text(1, name[i]);
  }
  return line;
}

int RunWeapons(Session& session) {
  if (!session.RequireGame()) return session.Finish(false);
  frmGameTools& screen = OpenGameTools(session);
  session.Follow(screen.ProgressBar);
  screen.FillSoundLists();
  std::vector<Text> names;
  std::vector<Text> lines;
  for (std::size_t row = 0; row < screen.lstWeapons.Count(); ++row) {
    names.push_back(screen.lstWeapons.Item(row));
    lines.push_back(OnOneLine(names.back()));
  }
  session.output.Result(lines, JsonTexts(names));
  return session.Finish(true);
}

/// Adds a sound by the screen's command, as if its lists held this weapon and file alone; a part
/// of a phaser's sound that is named needs no question.
void AddSound(frmGameTools& screen, const TypedSound& sound) {
  const Text wave = TextFromUtf8(sound.wave);
  const Text weapon = TextFromUtf8(sound.weapon + sound.part);
  screen.SoundVolume = static_cast<std::int16_t>(sound.volume);
  if (!sound.part.empty() && FitsOneLine(weapon)) {
    screen.lstSoundInfo.Add(SoundEntry(wave, weapon, sound.volume, screen.DecimalMark()));
    return;
  }
  screen.lstWeapons.Clear();
  screen.FileListWavs.Clear();
  screen.lstWeapons.SetSelected(screen.lstWeapons.Add(weapon), true);
  screen.FileListWavs.SetSelected(screen.FileListWavs.Add(wave), true);
  screen.AddSoundEntry();
}

int RunSoundPlugin(Session& session, const std::string& name, const std::vector<TypedSound>& sounds,
                   bool points) {
  if (!session.RequireGame()) return session.Finish(false);
  session.PrepareProgramFolder();
  frmGameTools& screen = OpenGameTools(session);
  screen.PointsInVolumes = points;
  screen.cboSoundName.SetText(TextFromUtf8(name));
  for (const TypedSound& sound : sounds) AddSound(screen, sound);
  if (screen.lstSoundInfo.Count() < sounds.size()) return session.Finish(false);
  screen.MarkFields();
  for (const Text& reason : screen.ReasonsOfMarks()) session.output.Say(reason);
  session.Changing([&] { screen.MakeSoundPlugin(); });
  return session.FinishWithMessage();
}

}  // namespace

void AddSoundCommands(CLI::App& parser, Command& chosen) {
  struct Arguments {
    std::string name;
    std::vector<TypedSound> sounds;
    bool points = false;
  };
  const auto typed = std::make_shared<Arguments>();
  AddCommand(parser, chosen, "weapons", "List the weapons of all hardpoint scripts", RunWeapons);
  CLI::App* const plugin =
      AddCommand(parser, chosen, "sound-plugin", "Make a sound plug-in", [typed](Session& session) {
        return RunSoundPlugin(session, typed->name, typed->sounds, typed->points);
      });
  plugin->add_flag("--points", typed->points,
                   "Write volumes with a point, whatever the system's decimal symbol is");
  plugin->add_option("NAME", typed->name, "The plug-in's name, without _SoundPak.py")->required();
  plugin
      ->add_option_function<std::vector<std::string>>(
          "--sound",
          [typed](const std::vector<std::string>& all) {
            for (const std::string& one : all) typed->sounds.push_back(ParseSound(one));
          },
          "A file of sfx\\Weapons, a weapon (with :Start or :Loop for a part of a phaser's sound), "
          "a volume of 10 to 100")
      ->type_name("WAV,WEAPON,VOLUME")
      ->required();
}

}  // namespace tarvo
