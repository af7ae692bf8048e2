#include "quickbattle/QBMenus.h"

#include "quickbattle/FieldReader.h"
#include "text/CodePage.h"

namespace tarvo {

Text QBMenuSearchText(TextView caption) {
  if (caption == u"Federation Ships") return u"Fed Ships";
  if (caption == u"Cardassian Ships") return u"Card Ships";
  return Text(caption);
}

bool PluginIsInMenu(FileTextView plugin, TextView caption) {
  const FileText search = FileTextFromText(QBMenuSearchText(caption));
  return !search.empty() && plugin.find(search) != FileTextView::npos;
}

FileTextView GroupLine(FileTextView plugin) {
  FieldReader fields(plugin);
  while (const auto field = fields.Next()) {
    if (field->starts_with("menuGroup")) return *field;
  }
  return {};
}

}  // namespace tarvo
