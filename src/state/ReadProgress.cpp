#include "state/ReadProgress.h"

#include "controls/ProgressBar.h"

namespace tarvo {
namespace {

ProgressBar* BarOf(const Application& app) {
  const auto found = app.ProgressBars.find(app.State.CurrentScreen);
  return found == app.ProgressBars.end() ? nullptr : found->second;
}

}  // namespace

ReadProgress::ReadProgress(Application& app, std::uint64_t fileLength)
    : app_(app), bar_(BarOf(app)) {
  if (!bar_) return;
  const std::int64_t first = app.State.CurrentScreen == u"Packager" ? 1 : 0;
  bar_->SetRange(0, static_cast<std::int64_t>(fileLength), first);
}

bool ReadProgress::Advance() {
  if (!bar_) return true;
  const std::int64_t value = bar_->Value() + app_.State.ReadChunkSize - 1;
  if (value > bar_->Max()) return false;
  bar_->SetValue(value);
  return true;
}

}  // namespace tarvo
