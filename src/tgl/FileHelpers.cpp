#include "tgl/FileHelpers.h"

#include <algorithm>
#include <vector>

#include "platform/PlatformError.h"
#include "text/Paths.h"

namespace tarvo {

bool helper_FileExists(Files& files, TextView Filename) {
  if (Filename.empty()) return false;
  if (files.FileExists(Filename) || files.FolderExists(Filename)) return true;
  const Text last = BareName(Filename);
  if (last.find_first_of(u"*?") == Text::npos) return false;
  const TextView folder = Filename.substr(0, Filename.size() - last.size());
  if (!files.FolderExists(folder)) return false;
  const std::vector<Text> folders = files.FolderNames(folder);
  return !files.FileNames(folder, last).empty() ||
         std::ranges::any_of(folders, [&](const Text& name) { return MatchesPattern(name, last); });
}

Text SystemWords(int code) {
  const Text words = SystemErrorText(code);
  return words.empty() ? Text(u"Unknown Win32 Error.") : words;
}

}  // namespace tarvo
