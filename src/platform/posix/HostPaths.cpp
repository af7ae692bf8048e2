#include "platform/posix/HostPaths.h"

#include <algorithm>

#include "text/Utf8.h"

namespace tarvo {
namespace {

bool IsSeparator(char16_t unit) {
  return unit == u'\\' || unit == u'/';
}

/// What follows the drive; nothing where the path has no root on drive Z:.
std::optional<TextView> BehindDrive(TextView path) {
  const bool hasDrive = path.size() >= 2 && path[1] == u':';
  if (hasDrive && path[0] != u'Z' && path[0] != u'z') return std::nullopt;
  const TextView rest = hasDrive ? path.substr(2) : path;
  if (hasDrive && rest.empty()) return rest;
  if (rest.empty() || !IsSeparator(rest[0])) return std::nullopt;
  const bool onServer = !hasDrive && rest.size() >= 2 && IsSeparator(rest[1]);
  if (onServer) return std::nullopt;
  return rest;
}

}  // namespace

std::optional<HostParts> SplitGamePath(TextView path) {
  const std::optional<TextView> rest = BehindDrive(path);
  if (!rest || path.find(u'\0') != TextView::npos) return std::nullopt;
  HostParts parts;
  parts.EndsInSeparator = rest->empty() || IsSeparator(rest->back());
  for (auto begin = rest->begin(); begin != rest->end();) {
    const auto end = std::find_if(begin, rest->end(), IsSeparator);
    if (end != begin) parts.Names.push_back(Utf8FromText(TextView(begin, end)));
    begin = end == rest->end() ? end : end + 1;
  }
  return parts;
}

std::optional<std::string> SpelledHostPath(TextView path) {
  const std::optional<TextView> rest = BehindDrive(path);
  if (!rest || rest->empty() || path.find(u'\0') != TextView::npos) return std::nullopt;
  std::string host = Utf8FromText(*rest);
  std::replace(host.begin(), host.end(), '\\', '/');
  return host;
}

Text GamePathOf(std::string_view hostPath) {
  if (hostPath.find('\\') != std::string_view::npos) return {};
  Text path = u"Z:" + TextFromUtf8(hostPath);
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

std::string JoinHostPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (path.empty() || path.back() != '/') path += '/';
  return path.append(name);
}

std::string HostFolderOf(std::string_view hostPath) {
  const std::size_t slash = hostPath.rfind('/');
  if (slash == std::string_view::npos) return ".";
  return slash == 0 ? "/" : std::string(hostPath.substr(0, slash));
}

std::string HostNameOf(std::string_view hostPath) {
  const std::size_t slash = hostPath.rfind('/');
  return std::string(slash == std::string_view::npos ? hostPath : hostPath.substr(slash + 1));
}

}  // namespace tarvo
