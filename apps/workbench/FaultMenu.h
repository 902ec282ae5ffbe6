#pragma once

#include <functional>
#include <string>

class QMenuBar;

namespace k4suite {
class SignEngine;
}

namespace workbench {

/// Adds the menu "Machine", which makes the chosen machine unreachable, slow or failing, to see
/// what an operator then sees.
/// @param chosenService gives the name of the machine that is chosen when an entry is used; without
///                      one the entries are disabled.
/// @param repaired      is called when all machines have been repaired.
void AddFaultMenu(QMenuBar& bar, k4suite::SignEngine& engine,
                  std::function<std::string()> chosenService, std::function<void()> repaired);

}  // namespace workbench
