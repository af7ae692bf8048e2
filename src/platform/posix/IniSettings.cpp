#include "platform/posix/IniSettings.h"

// The file is UTF-8, and so is what we ask for: nothing needs converting. Some distributions build
// the templates into a library, which takes ICU along, unless the header is asked for them.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <thread>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFileReader.h"
#include "platform/posix/PosixReplacement.h"
#include "platform/posix/SystemCalls.h"
#include "platform/posix/UserFolders.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr TextView kDigits = u"0123456789ABCDEF";

void AppendHex(Text& text, unsigned value, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += kDigits[value >> shift & 0xF];
}

/// Reads `digits` hex digits at `at`; -1 where they aren't.
int HexAt(TextView text, std::size_t at, std::size_t digits) {
  if (at + digits > text.size()) return -1;
  int value = 0;
  for (const char16_t unit : text.substr(at, digits)) {
    const std::size_t digit = kDigits.find(unit);
    if (digit == TextView::npos) return -1;
    value = value * 16 + static_cast<int>(digit);
  }
  return value;
}

bool IsSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

bool IsPair(TextView text, std::size_t at) {
  return at + 1 < text.size() && text[at] >= 0xD800 && text[at] <= 0xDBFF &&
         text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF;
}

/// `text` without `special` units, control characters, blanks at its ends and half surrogates.
std::string Escaped(TextView text, TextView special) {
  Text escaped;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    const bool atEnd = at == 0 || at + 1 == text.size();
    const bool plain = unit >= 0x20 && unit != 0x7F && unit != u'%' &&
                       special.find(unit) == TextView::npos && !(atEnd && unit == u' ');
    if (IsPair(text, at)) {
      escaped += text.substr(at++, 2);
    } else if (IsSurrogate(unit)) {
      escaped += u"%u";
      AppendHex(escaped, unit, 4);
    } else if (plain) {
      escaped += unit;
    } else {
      escaped += u'%';
      AppendHex(escaped, unit, 2);
    }
  }
  return Utf8FromText(escaped);
}

Text Unescaped(std::string_view bytes) {
  const Text text = TextFromUtf8(bytes);
  Text plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool wide = text[at] == u'%' && at + 1 < text.size() && text[at + 1] == u'u';
    const int value = text[at] != u'%' ? -1
                      : wide           ? HexAt(text, at + 2, 4)
                                       : HexAt(text, at + 1, 2);
    plain += value < 0 ? text[at] : static_cast<char16_t>(value);
    if (value >= 0) at += wide ? 5 : 2;
  }
  return plain;
}

std::string Name(TextView text) {
  return Escaped(text, u"[]=;#/");
}

std::string SectionName(TextView application, TextView section) {
  return Name(application) + '/' + Name(section);
}

/// The file's bytes, none for a file that doesn't exist. Throws when it can't be read, and for
/// what no INI file holds.
std::string Contents(const std::string& hostPath, TextView shownPath) {
  try {
    PosixFileReader file(hostPath, shownPath);
    std::string bytes(file.Size(), '\0');
    if (file.ReadAt(0, bytes) != bytes.size()) {
      throw PlatformError(u"read", Text(shownPath), EIO);
    }
    if (bytes.find('\0') == std::string::npos) return bytes;
    throw PlatformError(u"read", Text(shownPath), EILSEQ);
  } catch (const PlatformError& error) {
    if (error.Code == ENOENT) return {};
    throw;
  }
}

void Load(CSimpleIniA& ini, const std::string& bytes, TextView shownPath) {
  if (ini.LoadData(bytes) < 0) throw PlatformError(u"read", Text(shownPath), EILSEQ);
}

/// Keeps other processes of ours from writing between reading and replacing. Where locks don't work
/// the last one wins; not open when another one holds it for a second.
Descriptor LockedFolder(const std::string& folder) {
  using Clock = std::chrono::steady_clock;
  Descriptor lock = OpenDescriptor(folder, O_RDONLY | O_DIRECTORY);
  const auto end = Clock::now() + std::chrono::seconds(1);
  while (flock(lock.Get(), LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR)) {
    if (Clock::now() > end) return Descriptor();
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return lock;
}

}  // namespace

Text IniSettings::ShownPath() const {
  return GamePathOf(hostPath_);
}

Text IniSettings::Read(TextView application, TextView section, TextView key, TextView fallback) {
  try {
    CSimpleIniA ini(true);
    Load(ini, Contents(hostPath_, ShownPath()), ShownPath());
    const std::string sectionName = SectionName(application, section);
    const char* const value = ini.GetValue(sectionName.c_str(), Name(key).c_str());
    return value ? Unescaped(value) : Text(fallback);
  } catch (const PlatformError&) {
    return Text(fallback);
  }
}

void IniSettings::Write(TextView application, TextView section, TextView key, TextView text) {
  const std::string folder = HostFolderOf(hostPath_);
  if (!MakeFolders(folder, 0700)) throw PlatformError(u"make folder", GamePathOf(folder), errno);
  const Descriptor lock = LockedFolder(folder);
  if (!lock.IsOpen()) throw PlatformError(u"lock", ShownPath(), EAGAIN);
  CSimpleIniA ini(true);
  Load(ini, Contents(hostPath_, ShownPath()), ShownPath());
  ini.SetValue(SectionName(application, section).c_str(), Name(key).c_str(),
               Escaped(text, u"\"").c_str());
  std::string bytes;
  if (ini.Save(bytes) < 0) throw PlatformError(u"write", ShownPath(), ENOMEM);
  PosixReplacement file(state_, hostPath_, ShownPath(), NewFile::OnDisk);
  file.Write(bytes);
  file.Commit();
}

}  // namespace tarvo
