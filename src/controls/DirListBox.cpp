#include "controls/DirListBox.h"

#include "controls/ControlErrors.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

/// The folder's parents from the root on, then the folder, then its subfolders.
std::vector<DirListBox::Row> RowsOf(const Text& path, const std::vector<Text>& subfolders) {
  std::vector<DirListBox::Row> rows;
  int depth = 0;
  for (std::size_t end = path.find(u'\\'); end != Text::npos; end = path.find(u'\\', end + 1)) {
    const Text parent = path.substr(0, depth == 0 ? end + 1 : end);
    rows.push_back({depth == 0 ? parent : BareName(parent), parent, depth, true});
    ++depth;
  }
  if (rows.empty() || rows.back().Path != path) {
    rows.push_back({BareName(path), path, depth, true});
    ++depth;
  }
  for (const Text& name : subfolders) rows.push_back({name, JoinPath(path, name), depth, false});
  return rows;
}

}  // namespace

void DirListBox::SetPath(TextView path) {
  const Text folder = FolderWithoutTail(path);
  std::vector<Text> subfolders;
  const bool readable =
      files_.FolderExists(folder) && Guarded([&] { subfolders = files_.FolderNames(folder); });
  if (!readable) throw PathNotFound(u"DirListBox", path);
  const bool moved = folder != path_;
  path_ = folder;
  rows_ = RowsOf(path_, subfolders);
  listIndex_ = static_cast<int>(rows_.size() - subfolders.size()) - 1;
  Changed();
  if (moved) Raise(OnChange);
}

Text DirListBox::ListedFolder() const {
  return listIndex_ < 0 ? Text() : rows_[static_cast<std::size_t>(listIndex_)].Path;
}

void DirListBox::Click(std::size_t row) {
  rows_.at(row);
  if (!Usable()) return;
  listIndex_ = static_cast<int>(row);
  Changed();
  Raise(OnClick);
}

void DirListBox::GoUp() {
  if (listIndex_ < 1) return;
  auto row = static_cast<std::size_t>(listIndex_ - 1);
  if (rows_[row + 1].Open) return OpenRow(row);
  while (!rows_[row].Open) --row;
  Click(row);
}

void DirListBox::OpenRow(std::size_t row) {
  if (!Usable()) return;
  const Text path = rows_.at(row).Path;
  Guarded([&] { SetPath(path); });
}

}  // namespace tarvo
