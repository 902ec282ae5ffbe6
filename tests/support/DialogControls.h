#pragma once

#include <gtest/gtest.h>

#include <QString>

#include "k4cmndlg/frame/CDialog.h"

class QLineEdit;

namespace k4test {

/// The control of a dialog with an id. Without one of that kind the test ends.
template <class Control>
Control* Item(const CDialog& dialog, int controlId) {
    auto* control = qobject_cast<Control*>(dialog.GetDlgItem(controlId));
    if (!control) {
        ADD_FAILURE() << "no such control: " << controlId;
        throw testing::AssertionException(testing::TestPartResult(
            testing::TestPartResult::kFatalFailure, __FILE__, __LINE__, "no such control"));
    }
    return control;
}

/// Clicks a control: in its middle, or where a radio button or check box has its mark.
void Click(const CDialog& dialog, int controlId);
/// Clicks a field, and types over what it holds. The field keeps the focus.
void TypeOver(const CDialog& dialog, int controlId, const QString& text);
/// What a field, a label or a button shows.
std::string TextOf(const CDialog& dialog, int controlId);
/// The id of the control that has the focus; 0 if none with an id has.
int FocusedId(const CDialog& dialog);
/// Presses a key where the focus is.
void PressKey(CDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

}  // namespace k4test
