#pragma once

#include <memory>
#include <vector>

#include "controls/Control.h"
#include "desktop/View.h"

namespace tarvo {

/// Builds the views of all that stands on a control, on the widget `ground`: parents before their
/// children, and in the order of the controls, which makes the order of the Tab key and of drawing.
std::vector<std::unique_ptr<View>> MakeViews(const Control& parent, QWidget* ground);

}  // namespace tarvo
