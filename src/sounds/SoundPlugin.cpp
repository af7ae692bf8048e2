#include "sounds/SoundPlugin.h"

#include <algorithm>

#include "text/Cleaning.h"
#include "text/CodePage.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr FileTextView kLineEnd = "\r\n";
constexpr FileTextView kEntryStart = "Foundation.SoundDef(\"sfx/Weapons/";

/// Appends lines of a script.
class Script {
 public:
  void Line(FileTextView line) { text_.append(line).append(kLineEnd); }
  void HashRow() { Line(FileText(87, '#')); }
  void BlankRow() { Line("#" + FileText(85, ' ') + "#"); }
  FileText Take() { return std::move(text_); }

 private:
  FileText text_;
};

}  // namespace

Text SoundPluginOfFile(TextView fileName) {
  Text name = Without(fileName, kSoundPluginEnding);
  const std::size_t length = name.size() - std::min(name.size(), kSoundPluginEnding.size());
  if (EqualIgnoringCase(TextView(name).substr(length), kSoundPluginEnding)) name.resize(length);
  return name;
}

Text VolumeText(int percent, char16_t decimalMark) {
  Text digits = TextFromUtf8(std::to_string(percent));
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), u'0');
  Text whole = digits.substr(0, digits.size() - 2);
  Text fraction = digits.substr(digits.size() - 2);
  while (fraction.ends_with(u'0')) fraction.pop_back();
  return fraction.empty() ? whole : whole + decimalMark + fraction;
}

Text SoundEntry(TextView wave, TextView sound, int percent, char16_t decimalMark) {
  return Text(wave) + u"\", \"" + Text(sound) + u"\", " + VolumeText(percent, decimalMark);
}

bool HasDecimalComma(TextView entry) {
  const std::size_t quote = entry.rfind(u"\", ");
  return quote != TextView::npos && entry.find(u',', quote + 3) != TextView::npos;
}

bool FitsOneLine(TextView weapon) {
  return std::none_of(weapon.begin(), weapon.end(), IsUnprintable);
}

FileText SoundPluginText(const std::vector<Text>& entries, TextView date) {
  Script script;
  script.HashRow();
  script.Line(
      "#  Custom Weapon Sound Plugin                                                         #");
  script.Line(
      "#  Created by Tarvo Packager                                                          #");
  script.Line("#  Date: " + FileTextFromText(date) + FileText(68, ' ') + "#");
  script.HashRow();
  script.BlankRow();
  script.Line("import Foundation");
  script.Line("import App");
  script.BlankRow();
  script.HashRow();
  script.BlankRow();
  for (const Text& entry : entries) {
    script.Line(FileText(kEntryStart) + FileTextFromText(entry) + ")");
  }
  script.BlankRow();
  script.HashRow();
  return script.Take();
}

std::vector<Text> SoundPluginEntries(FileTextView plugin) {
  std::vector<Text> entries;
  std::size_t position = 0;
  while ((position = plugin.find(kEntryStart, position)) != FileTextView::npos) {
    position += kEntryStart.size();
    const std::size_t end = plugin.find_first_of(kLineEnd, position);
    if (end == FileTextView::npos) break;
    FileTextView line = plugin.substr(position, end - position);
    position = end;
    line = line.substr(0, line.find_last_not_of(" \t") + 1);
    if (line.size() < 2) continue;
    Text entry = TextFromFileText(line.substr(0, line.size() - 1));
    std::replace_if(entry.begin(), entry.end(), IsUnprintable, u' ');
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tarvo
