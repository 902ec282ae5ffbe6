#include "apps/k4ctl/Command.h"

namespace k4ctl {

Command::Command() = default;
Command::~Command() = default;

}  // namespace k4ctl
