#include "controls/DriveListBox.h"

#include <algorithm>

#include "controls/ControlErrors.h"
#include "platform/Files.h"
#include "text/LetterCase.h"

namespace tarvo {

DriveListBox::DriveListBox(Control* parent, Files& files)
    : Control(parent), drives_(files.Drives()) {
  if (!drives_.empty()) drive_ = drives_.front();
}

void DriveListBox::SetDrive(TextView drive) {
  const auto found = std::find_if(drives_.begin(), drives_.end(), [&](const Text& known) {
    return EqualIgnoringCase(known, drive);
  });
  if (found == drives_.end()) throw DeviceUnavailable(u"DriveListBox", drive);
  if (*found == drive_) return;
  drive_ = *found;
  Changed();
  Raise(OnChange);
}

}  // namespace tarvo
