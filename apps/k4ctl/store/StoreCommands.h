#pragma once

#include <memory>
#include <vector>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/store/Terminal.h"
#include "suite/settings/DataHome.h"

namespace k4ctl {

/// The commands on the sign file store of a data home: ls, tree, cp, mv, rename, rm, mklib, mktype,
/// report, and the search `find`. They install for themselves what they need, and no services.
/// @param terminal where they ask and show their progress.
std::vector<std::unique_ptr<Command>> StoreCommands(const k4suite::DataHome& home,
                                                    const Terminal& terminal);

}  // namespace k4ctl
