#pragma once

namespace qt {

/// From now on screen readers hear of the widgets of our screens what the toolkit leaves out: a
/// drop-down list by its name and not by its value alone, a line as a line and not by the name of
/// its group, and a panel as a group. Those of the host stay as they are.
void HacerAccesibles();

}  // namespace qt
