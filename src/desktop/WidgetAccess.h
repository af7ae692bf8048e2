#pragma once

namespace tarvo {

/// Lets screen readers know forms as windows and dialogs, and drop-downs by their names: Qt calls a
/// drop-down by what stands in it. May be called again.
void MakeWidgetsAccessible();

}  // namespace tarvo
