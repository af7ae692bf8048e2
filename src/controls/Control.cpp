#include "controls/Control.h"

#include <algorithm>

namespace tarvo {

Control::Control(Control* parent) : parent_(parent) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  if (parent_) std::erase(parent_->children_, this);
}

void Control::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

void Control::Refresh() {
  if (observer_) observer_->ControlRefreshed(*this);
}

void Control::SetFocus() {
  if (observer_) observer_->ControlFocused(*this);
}

bool Control::Usable() const {
  if (!Visible || !Enabled) return false;
  return !parent_ || parent_->Usable();
}

void Control::Changed() {
  if (observer_) observer_->ControlChanged(*this);
}

}  // namespace tarvo
