#pragma once

#include <iosfwd>

#include "apps/k4ctl/Command.h"
#include "suite/settings/DataHome.h"

namespace k4ctl {

/// Runs a command on the embedded suite over a data home, which is made and filled with sample data
/// first if there is none. What the suite has to complain about goes to `err`, before the command
/// and behind it; a change that couldn't be kept is a failure. Where a service is unavailable
/// because another process holds the services of the home, the answer says which.
Answer RunOnHome(const k4suite::DataHome& home, const Command& command, std::ostream& err);

}  // namespace k4ctl
