#pragma once

#include <string>

class QWidget;

namespace workbench {

/// Has the preview application play a sequence: leaves the request in the settings, and starts the
/// program beside this one. One that runs already takes up the request and comes to the front.
/// @return 1, or 0 after a message.
int ShowInPreviewApplication(const std::string& path, QWidget* parent);

}  // namespace workbench
