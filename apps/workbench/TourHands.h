#pragma once

#include <QString>
#include <functional>

class QAction;
class QWidget;

namespace workbench {

/// @name What a tour does as a person would: by mouse and keys, on the controls that a person sees.
/// @{
/// The control of a dialog of the library with an id; null if there is none.
QWidget* Control(QWidget& dialog, int id);
/// Clicks a button, or where a radio button or check box has its mark.
void Click(QWidget& dialog, int id);
/// Types over what a field holds, and leaves it by the Tab key.
void Type(QWidget& dialog, int id, const QString& text);
/// Chooses an entry of a combo box, which can't be typed into, by keys.
void Choose(QWidget& dialog, int id, int index);
/// Brings the page of a sheet to the front by its tab.
void ClickTab(QWidget& sheet, int page);
/// What a field shows; empty if there is none.
QString FieldText(QWidget& dialog, int id);
/// @}

/// Waits until something holds, events being handled. @return whether it did within the time.
bool Until(const std::function<bool()>& holds, int milliseconds = 10000);

/// Triggers an action that runs a modal window, and hands the first one that comes up to `drive`.
/// Windows that stay open beyond a time are closed, so that a tour always ends.
/// @return whether one came up and none had to be closed.
bool TriggerAndDrive(QAction& action, const std::function<void(QWidget& window)>& drive);
/// As above for a modal window over another one. @param open what a person does to open it.
bool OpenAndDrive(const std::function<void()>& open,
                  const std::function<void(QWidget& window)>& drive);

}  // namespace workbench
