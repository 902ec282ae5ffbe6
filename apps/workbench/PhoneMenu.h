#pragma once

class QMenuBar;

namespace k4suite {
class RemoteEngine;
}

namespace workbench {

/// Adds the menu "Phone": the phone book's entries, each with the state of its link. Choosing one
/// dials it, or hangs up where it is dialled or up. Without entries there is no menu.
void AddPhoneMenu(QMenuBar& bar, k4suite::RemoteEngine& engine);

}  // namespace workbench
