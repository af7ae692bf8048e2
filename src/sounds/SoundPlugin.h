#pragma once

#include <vector>

#include "text/Text.h"

namespace tarvo {

/// A sound plug-in is a script of the game with one line for each pair of a sound file and a
/// weapon. An entry is the inside of such a line, as the user sees it:
///
///     torp.wav", "Klingon Torpedo", 0.8

/// What stands behind the name in the file name of a sound plug-in.
inline constexpr TextView kSoundPluginEnding = u"_SoundPak.py";

/// The plug-in of a file: its name without every kSoundPluginEnding in it, and without one in
/// another letter case at its end.
Text SoundPluginOfFile(TextView fileName);

/// A volume of 10 to 100 per cent as a number with no zeros at its end: "0.1" to "0.95", "1".
Text VolumeText(int percent, char16_t decimalMark);

/// `sound` is the weapon's name, for a phaser with " Start" or " Loop" behind it.
Text SoundEntry(TextView wave, TextView sound, int percent, char16_t decimalMark);

/// True for an entry whose volume has a comma, which no script can read as a number.
bool HasDecimalComma(TextView entry);

/// True when the entry of a weapon of that name can stand on one line of a script.
bool FitsOneLine(TextView weapon);

/// The whole plug-in: a line for each entry, in their order. `date` is shown in a comment.
FileText SoundPluginText(const std::vector<Text>& entries, TextView date);

/// The entries of a plug-in in the order of its lines; other lines don't matter. A line ends in
/// CR LF or LF, and the last one counts only if it has an end. Blanks behind the closing
/// parenthesis are dropped; a control character inside a line, such as a tab, becomes a blank.
std::vector<Text> SoundPluginEntries(FileTextView plugin);

}  // namespace tarvo
