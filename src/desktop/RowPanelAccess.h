#pragma once

namespace tarvo {

class RowPanelFace;

/// Lets screen readers see the rows of panels as the items of a tree. May be called again.
void MakeRowPanelsAccessible();

/// Tells screen readers that the keyboard has come to another row.
void TellFocusedRow(RowPanelFace& face);

}  // namespace tarvo
