#include "platform/ProgramFolder.h"

#include <string>

#include "platform/Guarded.h"
#include "platform/InstalledData.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

/// The program's data is known by the one folder that no version lacks.
bool HoldsData(Files& files, const Text& folder) {
  return !folder.empty() && files.FolderExists(JoinPath(folder, u"Backup"));
}

bool IsSameFolder(Files& files, const Text& a, const Text& b) {
  bool isSame = false;
  Guarded([&] { isSame = files.RealPath(a) == files.RealPath(b); });
  return isSame;
}

FoundProgramFolder FindFolder(Files& files, const ProgramPlaces& places) {
  const bool isInstalled = !HoldsData(files, places.Own) && HoldsData(files, places.Installed);
  if (!isInstalled && CanWriteIn(places.Own)) return {places.Own, {}};
  const Text& source = isInstalled ? places.Installed : places.Own;
  if (places.User.empty()) {
    return {source, {PlatformError(u"find", u"the home folder", kNoSuchFile)}};
  }
  FoundProgramFolder found{places.User, {}};
  if (const int code = MakeUserFolder(places.User)) {
    found.Failures.emplace_back(u"make folder", found.Path, code);
  } else if (!HoldsData(files, source)) {
    const Text& wanted = places.Installed.empty() ? source : places.Installed;
    found.Failures.emplace_back(u"find", wanted, kNoSuchFile);
  } else if (!IsSameFolder(files, source, places.User)) {
    found.Failures = CopyInstalledData(files, source, found.Path);
  }
  return found;
}

}  // namespace

/// Where one of the places can't be looked at nobody knows which is the one: the user's packages
/// must not go to the wrong one.
FoundProgramFolder OpenProgramFolderAt(Files& files, const ProgramPlaces& places) {
  try {
    return FindFolder(files, places);
  } catch (const PlatformError& error) {
    return {{}, {error}};
  }
}

Text FailureWords(const FoundProgramFolder& found) {
  if (found.Failures.empty()) return {};
  Text words = found.Path.empty() ? u"The program folder couldn't be found. "
                                  : u"The program's own files couldn't be brought up to date. ";
  words += Words(found.Failures.front());
  if (const std::size_t more = found.Failures.size() - 1) {
    const std::string count = std::to_string(more);
    words += u" (and " + Text(count.begin(), count.end()) + u" more)";
  }
  return words;
}

}  // namespace tarvo
