#include "controls/Form.h"

#include "controls/Button.h"

namespace tarvo {

bool Form::PressEscape() {
  if (OnEscape && OnEscape()) return true;
  if (Button* button = CancelButton) button->Press();
  return CancelButton.Get() != nullptr;
}

}  // namespace tarvo
