#include "platform/posix/WineRegistry.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/PosixFileReader.h"
#include "platform/posix/WineRegistryFile.h"
#include "text/LetterCase.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kExpandString = 2;

/// One key in one prefix.
struct Source {
  std::string Prefix;
  WineValues Values;
};

struct Translated {
  RegistryValue Value;
  bool Usable;  ///< Names a folder that exists, or no folder at all.
};

bool IsFolder(const std::string& hostPath) {
  struct stat state;
  return stat(hostPath.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

bool LooksLikePath(TextView text) {
  const char16_t letter = FoldCase(text.substr(0, 1)).append(1, u' ')[0];
  return text.size() >= 3 && letter >= u'a' && letter <= u'z' && text[1] == u':' &&
         (text[2] == u'\\' || text[2] == u'/');
}

/// The path with no link left in it; empty when it doesn't exist.
std::string RealPath(const std::string& hostPath) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(hostPath.c_str(), nullptr), std::free);
  return real ? real.get() : "";
}

/// Leads the path of a program in a prefix to the host.
std::string HostPathIn(const std::string& prefix, TextView path) {
  const auto letter = static_cast<char>(FoldCase(path.substr(0, 1))[0]);
  const std::string drive =
      RealPath(JoinHostPath(prefix, std::string("dosdevices/") + letter + ':'));
  if (!IsFolder(drive)) return {};
  const std::optional<HostParts> parts = SplitGamePath(path.substr(2));
  if (!parts) return {};
  NameLookup names;
  return names.Resolve(drive, parts->Names);
}

Translated Translate(const std::string& prefix, RegistryValue value) {
  const bool isText = value.Type == kRegistryString || value.Type == kExpandString;
  if (!isText || !LooksLikePath(value.String)) return {std::move(value), true};
  const std::string host = HostPathIn(prefix, value.String);
  const std::string real = RealPath(host);
  Text path = GamePathOf(real.empty() ? host : real);
  // A folder whose real name no game path can tell may still be told by its links.
  if (path.empty()) path = GamePathOf(host);
  const bool usable = !host.empty() && !path.empty() && IsFolder(host);
  value.String = FolderWithoutTail(host.empty() || path.empty() ? value.String : path);
  return {std::move(value), usable};
}

class WineKey : public RegistryKey {
 public:
  explicit WineKey(std::vector<Source> sources) : sources_(std::move(sources)) {}

  std::optional<RegistryValue> Query(TextView valueName) override {
    std::optional<RegistryValue> first;
    for (const Source& source : sources_) {
      const auto found = source.Values.find(FoldCase(valueName));
      if (found == source.Values.end()) continue;
      Translated translated = Translate(source.Prefix, found->second);
      if (translated.Usable) return std::move(translated.Value);
      if (!first) first = std::move(translated.Value);
    }
    return first;
  }

  std::vector<RegistryValue> QueryAll(TextView valueName) override {
    std::vector<RegistryValue> values;
    for (const Source& source : sources_) {
      const auto found = source.Values.find(FoldCase(valueName));
      if (found == source.Values.end()) continue;
      Translated translated = Translate(source.Prefix, found->second);
      if (translated.Usable) values.push_back(std::move(translated.Value));
    }
    return values;
  }

 private:
  std::vector<Source> sources_;
};

/// Empty when the prefix has no registry that can be read.
std::string RegistryText(const std::string& prefix) {
  try {
    PosixFileReader file(JoinHostPath(prefix, "system.reg"), {});
    std::string text(file.Size(), '\0');
    text.resize(file.ReadAt(0, text));
    return text;
  } catch (const PlatformError&) {
    return {};
  }
}

/// Where a 32-bit program finds a key: in a 64-bit prefix, then in a 32-bit one.
std::vector<Text> Views(TextView keyPath) {
  constexpr TextView kSoftware = u"Software\\";
  const Text plain(keyPath);
  if (!EqualIgnoringCase(keyPath.substr(0, kSoftware.size()), kSoftware)) return {plain};
  const Text below(keyPath.substr(kSoftware.size()));
  return {u"Software\\Wow6432Node\\" + below, plain};
}

}  // namespace

std::unique_ptr<RegistryKey> WineRegistry::OpenKey(std::uint32_t root, TextView keyPath) {
  while (keyPath.ends_with(u'\\')) keyPath.remove_suffix(1);
  std::vector<Source> sources;
  for (const std::string& prefix : prefixes_) {
    if (root != kLocalMachine) break;
    const std::string text = RegistryText(prefix);
    for (const Text& view : Views(keyPath)) {
      std::optional<WineValues> values = ReadWineKey(text, view);
      if (values) sources.push_back({prefix, std::move(*values)});
    }
  }
  const bool isLocal = root == kLocalMachine;
  const Text name = (isLocal ? u"HKEY_LOCAL_MACHINE\\" : u"") + Text(keyPath);
  if (sources.empty()) throw PlatformError(u"open", name, ENOENT);
  return std::make_unique<WineKey>(std::move(sources));
}

std::vector<Text> WineRegistry::ProgramDrives() {
  std::vector<Text> drives;
  for (const std::string& prefix : prefixes_) {
    Text drive = GamePathOf(RealPath(JoinHostPath(prefix, "dosdevices/c:")));
    if (!drive.empty()) drives.push_back(std::move(drive));
  }
  return drives;
}

}  // namespace tarvo
