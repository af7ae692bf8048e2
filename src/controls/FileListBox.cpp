#include "controls/FileListBox.h"

#include "controls/ControlErrors.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "text/Paths.h"

namespace tarvo {

void FileListBox::SetPath(TextView path) {
  const Text folder = FolderWithoutTail(path);
  if (!files_.FolderExists(folder)) throw PathNotFound(u"FileListBox", path);
  path_ = folder;
  Reload();
}

void FileListBox::Reload() {
  std::vector<Text> names;
  Guarded([&] { names = files_.FileNames(path_, pattern_); });
  SetItems(std::move(names));
}

}  // namespace tarvo
