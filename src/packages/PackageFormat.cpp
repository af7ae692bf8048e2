#include "packages/PackageFormat.h"

#include <algorithm>
#include <array>

#include "text/Cleaning.h"
#include "text/CodePage.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::size_t kBannerWidth = 87;

/// A banner line of the usual width: "#  ", the words, blanks and "#".
FileText BannerLine(FileTextView words) {
  FileText line = "#  ";
  line += words;
  line.resize(kBannerWidth - 1, ' ');
  return line + "#\r\n";
}

bool IsControl(char16_t unit) {
  return unit < 0x20 || unit == 0x7F;
}

/// Names that the host of the game gives to devices in every folder, whatever ending follows.
bool IsDeviceName(TextView part) {
  static constexpr std::array<TextView, 6> kDevices = {u"con", u"prn",    u"aux",
                                                       u"nul", u"conin$", u"conout$"};
  Text name = FoldCase(part.substr(0, part.find(u'.')));
  while (!name.empty() && name.back() == u' ') name.pop_back();
  if (std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end()) return true;
  if (name.size() != 4 || (name.compare(0, 3, u"com") != 0 && name.compare(0, 3, u"lpt") != 0)) {
    return false;
  }
  static constexpr TextView kPorts = u"123456789\u00B9\u00B2\u00B3";
  return kPorts.find(name[3]) != TextView::npos;
}

/// The most bytes that file systems let a name have.
constexpr std::size_t kLongestName = 255;

std::optional<Text> UnsafePart(TextView part) {
  if (part == u"..") return u"it leads out of its folder";
  if (part.empty()) return u"it holds an empty name";
  if (part.back() == u'.' || part.back() == u' ') return u"a name in it ends in a blank or a dot";
  if (IsDeviceName(part)) return u"it names a device";
  if (Utf8FromText(part).size() > kLongestName) return u"a name in it is too long";
  return {};
}

}  // namespace

FileText PackageHead(TextView packageList, TextView shortDate) {
  const FileText rule = FileText(kBannerWidth, '#') + "\r\n";
  FileText head = rule;
  head += BannerLine("Bridge Commander Tarvo Pak");
  head += BannerLine("Created by Tarvo Packager BETA v4.0");
  head += "#  Date: " + FileTextFromText(shortDate) + FileText(68, ' ') + "#\r\n";
  head += rule;
  head += kLineEnd;
  head += FileTextFromText(packageList);
  return head + ";\r\n";
}

FileText BodyEnd() {
  FileText end(kLineEnd);
  end += kMarker;
  end += kLineEnd;
  return end;
}

bool IsTGLEntry(TextView entry) {
  return entry.ends_with(u"TGL");
}

Text ShipOfTGLEntry(TextView entry) {
  Text ship(entry);
  for (const TextView part : {TextView(u"\\ShipTGLs\\"), TextView(u".TGL"), TextView(u"\\")}) {
    ship = Without(ship, part);
  }
  return ship;
}

std::vector<Text> EntriesOf(TextView packageList) {
  std::vector<Text> entries;
  for (std::size_t end = packageList.find(u"\r\n"); end != TextView::npos;
       end = packageList.find(u"\r\n")) {
    entries.emplace_back(packageList.substr(0, end));
    packageList.remove_prefix(end + 2);
  }
  return entries;
}

std::optional<Text> UnsafeReason(TextView entry) {
  if (!entry.starts_with(u'\\')) return u"it doesn't begin with a backslash";
  if (entry.starts_with(u"\\\\")) return u"it begins with two backslashes";
  if (std::any_of(entry.begin(), entry.end(), IsControl)) return u"it holds a control character";
  if (entry.find(u':') != TextView::npos) return u"it holds a colon";
  if (entry.find(u'/') != TextView::npos) return u"it holds a slash";
  const std::size_t odd = entry.find_first_of(u"*?\"<>|");
  if (odd != TextView::npos) return u"it holds " + Text(1, entry[odd]);
  for (TextView rest = entry.substr(1);;) {
    const std::size_t slash = rest.find(u'\\');
    if (auto reason = UnsafePart(rest.substr(0, slash))) return reason;
    if (slash == TextView::npos) return {};
    rest.remove_prefix(slash + 1);
  }
}

std::optional<Text> UnpackableReason(TextView entry) {
  if (entry.find(u';') != TextView::npos) return u"its name holds \";\"";
  if (!FitsCodePage(entry)) return u"its name holds a character that a Tarvo can't carry";
  return UnsafeReason(entry);
}

bool IsRefusedWhenRead(TextView entry) {
  return UnsafeReason(TextFromFileText(FileTextFromText(entry))).has_value();
}

}  // namespace tarvo
