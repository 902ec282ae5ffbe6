#pragma once

namespace k4cmn {

/// Tells the toolkit once how a CK4CmnHyperLink is to be read out: as a link, with a press as its
/// action.
void InstallHyperLinkAccess();

}  // namespace k4cmn
