#pragma once

#include "apps/k4ctl/Answer.h"
#include "apps/k4ctl/store/StorePlace.h"

namespace k4ctl {

/// Whether a folder can be listed. One that can't be is a failure in the answer: the tree and the
/// list show nothing then, as they do where nothing is.
bool CanRead(const StorePlace& folder, Answer& answer);

}  // namespace k4ctl
