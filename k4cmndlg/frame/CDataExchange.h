#pragma once

#include <QPointer>
#include <QWidget>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "k4cmndlg/k4cmndlg_export.h"

class CDialog;
class QAbstractButton;
class QComboBox;
class QLineEdit;
class QRadioButton;
class QSlider;

/// One move of data between a dialog's members and its controls. After the first failure the rest
/// of the move does nothing, so that members behind it keep their values.
class K4CMNDLG_EXPORT CDataExchange {
 public:
    /// Begins a move. It does nothing by itself: CDialog::UpdateData makes one and hands it to the
    /// dialog's DoDataExchange.
    /// @param pDlgWnd the dialog, in front of which a refusal is shown. It outlives this object,
    /// which doesn't own it. @param saveAndValidate the direction, see m_bSaveAndValidate.
    /// Threads: the user interface thread.
    CDataExchange(CDialog* pDlgWnd, bool saveAndValidate);

    /// True: from the controls to the members, with checks. False: from the members to the
    /// controls.
    const bool m_bSaveAndValidate;

    /// True while nothing has failed.
    bool Ok() const { return m_ok; }
    /// True while data is to be moved from the controls and nothing has failed.
    bool Saving() const { return m_bSaveAndValidate && m_ok; }
    /// True while data is to be moved to the controls and nothing has failed.
    bool Loading() const { return !m_bSaveAndValidate && m_ok; }

    /// Names the control that a following check is about. The DDX functions do so by themselves.
    void PrepareControl(QWidget* control);
    /// The control named last; null if there is none, or it is gone.
    QWidget* Control() const { return m_control; }
    /// Refuses the content of the prepared control: shows the words in a plain message, gives the
    /// control the focus with its text selected, and ends the move. Empty words show nothing.
    void Fail(const std::string& words);

 private:
    CDialog* m_pDlgWnd;
    QPointer<QWidget> m_control;
    bool m_ok = true;
};

/// @name Moving data. Each names its control for the check that follows it. A control that is
/// loaded tells nobody of its change: the handlers of a dialog run when a person changes something.
/// @{
/// The text of a field as it stands, of any length and also empty: it is never refused. Loading a
/// text that the field shows already leaves its cursor and what can be undone.
K4CMNDLG_EXPORT void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::string& value);
/// A text that is no integer of 32 bits is refused: "Enter an integer."
K4CMNDLG_EXPORT void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::int32_t& value);
/// A number without a sign. One of any length is a number, pinned to 32 bits, so that a check of
/// its range tells what is wrong with it; any other text is refused: "Enter an integer."
K4CMNDLG_EXPORT void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::uint32_t& value);
/// 1 checked, 0 not.
K4CMNDLG_EXPORT void DDX_Check(CDataExchange* pDX, QAbstractButton* button, int& value);
/// The index of the button that is on, -1 if none is.
K4CMNDLG_EXPORT void DDX_Radio(CDataExchange* pDX, std::initializer_list<QRadioButton*> buttons,
                               int& value);
/// The text of a combo box. Loading selects the entry with exactly that text, or none; an editable
/// one shows the text in either case.
K4CMNDLG_EXPORT void DDX_CBString(CDataExchange* pDX, QComboBox* combo, std::string& value);
/// The index of a combo box's entry; -1 for none. Loading an index that isn't there selects none.
K4CMNDLG_EXPORT void DDX_CBIndex(CDataExchange* pDX, QComboBox* combo, int& index);
/// The position of a slider, in its own units. Loading a number outside of the slider's range moves
/// it to the nearer end; the member keeps the number until it is read back.
K4CMNDLG_EXPORT void DDX_Slider(CDataExchange* pDX, QSlider* slider, int& value);
/// @}

/// @name Checks, while data is moved from the controls. A refusal shows the toolkit's words.
/// @{
/// "Enter an integer between %1 and %2."
K4CMNDLG_EXPORT void DDV_MinMaxInt(CDataExchange* pDX, std::int32_t value, std::int32_t minimum,
                                   std::int32_t maximum);
/// The same words, for a number without a sign.
K4CMNDLG_EXPORT void DDV_MinMaxUInt(CDataExchange* pDX, std::uint32_t value, std::uint32_t minimum,
                                    std::uint32_t maximum);
/// "Enter no more than %1 characters." Loading limits what the field takes to that number. What
/// counts is UTF-16 units, as the toolkit's fields count them.
K4CMNDLG_EXPORT void DDV_MaxChars(CDataExchange* pDX, const std::string& value,
                                  std::size_t maximum);
/// @}
