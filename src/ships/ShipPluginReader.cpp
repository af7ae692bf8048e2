#include "ships/ShipFiles.h"
#include "ships/ShipPlugin.h"
#include "text/CodePage.h"

namespace tarvo {
namespace {

/// What stands between `key` and the next apostrophe.
Text ValueBehind(FileTextView text, FileTextView key) {
  const std::size_t at = text.find(key);
  if (at == FileTextView::npos) return {};
  const FileTextView rest = text.substr(at + key.size());
  const std::size_t end = rest.find('\'');
  if (end == FileTextView::npos) return {};
  return Showable(TextFromFileText(rest.substr(0, end)));
}

}  // namespace

ShipPlugin ReadShipPlugin(FileTextView text) {
  ShipPlugin plugin;
  plugin.Icon = ValueBehind(text, "iconName = '");
  plugin.Menu = ValueBehind(text, "menuGroup = '");
  plugin.ModName = ValueBehind(text, "'modName': '");
  plugin.Author = ValueBehind(text, "'author': '");
  plugin.Version = ValueBehind(text, "'version': '");
  plugin.Sources = ValueBehind(text, "'sources': [ '");
  plugin.Comments = ValueBehind(text, "'comments': '");
  return plugin;
}

}  // namespace tarvo
