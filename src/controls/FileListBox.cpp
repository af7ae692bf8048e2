#include "controls/FileListBox.h"

#include "controls/ControlErrors.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "text/Paths.h"

namespace tarvo {

void FileListBox::SetPath(TextView path) {
  const Text folder = FolderWithoutTail(path);
  try {
    if (!files_.FolderExists(folder)) throw PathNotFound(u"FileListBox", path);
  } catch (const PlatformError&) {
    path_ = folder;
    SetItems({});
    throw;
  }
  path_ = folder;
  Reload();
}

void FileListBox::Reload() {
  SetItems({});
  try {
    SetItems(files_.FileNames(path_, pattern_));
  } catch (const PlatformError& error) {
    if (!SaysNothingThere(error.Code)) throw;
  }
}

}  // namespace tarvo
