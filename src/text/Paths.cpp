#include "text/Paths.h"

namespace tarvo {
namespace {

TextView WithoutTail(TextView path) {
  while (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
  return path;
}

}  // namespace

Text BareName(TextView path) {
  const std::size_t slash = path.rfind(u'\\');
  return Text(slash == TextView::npos ? path : path.substr(slash + 1));
}

Text FolderWithoutTail(TextView path) {
  Text folder(WithoutTail(path));
  const bool isDrive = folder.size() == 2 && folder[1] == u':';
  if (isDrive || (folder.empty() && !path.empty())) folder += u'\\';
  return folder;
}

Text JoinPath(TextView root, TextView part) {
  while (!part.empty() && part.front() == u'\\') part.remove_prefix(1);
  return Text(WithoutTail(root)) + u"\\" + Text(part);
}

}  // namespace tarvo
