#pragma once

#include "controls/Control.h"

namespace tarvo {

class Files;

/// The drives of the machine to pick one from, each as "Z:".
class DriveListBox : public Control {
 public:
  DriveListBox(Control* parent, Files& files);
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  const std::vector<Text>& Drives() const { return drives_; }
  const Text& Drive() const { return drive_; }

  /// By program or by the user. Raises an error for a drive that the machine doesn't have; another
  /// drive than before raises OnChange.
  void SetDrive(TextView drive);

  std::function<void()> OnChange;

 private:
  std::vector<Text> drives_;
  Text drive_;
};

}  // namespace tarvo
