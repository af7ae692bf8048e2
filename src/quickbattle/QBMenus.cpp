#include "quickbattle/QBMenus.h"

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

}  // namespace tarvo
