#pragma once

#include <memory>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/k4cmndlg_export.h"

class K4CalendarCtrl;
class QKeyEvent;

namespace Ui {
class DateDialog;
}

/// The dialog "Select Date": a calendar in a small window on top of all others.
///
/// A double click on the calendar acts as OK. With the Ctrl key down it shows what the calendar
/// control is instead. F1 and the question mark tool, which Shift+F1 takes up too, ask the help
/// system for the popup of the control's help id (GetWindowContextHelpId) as it stands, without the
/// offset of the library's other dialogs; what is no control has no help here.
///
/// Use: set date and place, run DoModal(), and read the date after IDOK. Where there is no calendar
/// control DoModal() returns -1, and the caller tells of that by ShowFailure().
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgDate final : public CDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgDate)

 public:
    /// @param parent may be null.
    explicit CK4CmnDlgDate(QWidget* parent);
    ~CK4CmnDlgDate() override;

    /// Makes the dialog modeless, without a parent: from now on only its owner deletes it. It isn't
    /// shown yet. @return 1, or 0 if there is no calendar control, or a window already.
    int Create();

    /// Where the window opens, in screen coordinates; above 2000 counts as 0.
    void SetStartLocation(int x, int y);
    /// The date that the calendar shows at first; 0 for none.
    void SetStartDate(int day, int month, int year);

    /// @name The date. After an OK that was refused, the pieces that had been read by then are new.
    /// @{
    int GetDay() const { return m_day; }
    int GetMonth() const { return m_month; }
    int GetYear() const { return m_year; }
    /// @}

    /// Tells in front of a window that the dialog couldn't be created: "Failed to create Date
    /// dialog.\n\nCheck to make sure the file MSCAL.OCX is in the \WinNT\System32 directory.".
    static void ShowFailure(QWidget* parent);

 protected:
    int OnCreate() override;
    int OnInitDialog() override;
    void OnOK() override;
    bool event(QEvent* event) override;

 private:
    void OnDblClick();
    bool OnHelpRequest(QEvent& event);
    bool OnHelpKey(const QKeyEvent& key);
    QWidget* ControlAround(QWidget* part) const;
    static bool AskHelp(QWidget* control);

    std::unique_ptr<Ui::DateDialog> m_ui;
    K4CalendarCtrl* m_calendar = nullptr;  ///< null until the window has been created
    int m_day = 0;
    int m_month = 0;
    int m_year = 0;
    int m_x = 0;
    int m_y = 0;
};
