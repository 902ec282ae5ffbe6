#pragma once

#include <functional>

class CDialog;

namespace k4test {

/// Runs a dialog and drives it from within its event loop, as a person would.
///
/// `drive` is called once, when the dialog is the active window. It has to end the dialog: one that
/// it leaves open is cancelled and fails the test, and so does one that isn't active in time.
/// @return what DoModal() returned.
int DriveDialog(CDialog& dialog, const std::function<void()>& drive);

}  // namespace k4test
