#pragma once

#include <QDialog>
#include <cstdint>
#include <string>

#include "k4cmndlg/k4cmndlg_export.h"

class CDataExchange;

/// Results of a dialog and ids of the standard buttons.
enum : int { IDOK = 1, IDCANCEL = 2, IDHELP = 9 };

/// The toolkit's modal dialog, with a resource id, data exchange with its controls, and the usual
/// order of events: the window is created (OnCreate), initialised (OnInitDialog), shown, and
/// destroyed (OnDestroy).
///
/// A derived class sets up its layout in its constructor. Every control that has an id in the
/// layout carries it as the dynamic property `controlId`; the buttons with the ids 1, 2 and 9 are
/// wired to OnOK, OnCancel and OnDlgHelp by the base, Escape and the window's close button to
/// OnCancel (they do nothing while a Cancel button is there and disabled). The button with the id 1
/// is the default one, which Enter presses.
///
/// Ownership: the caller's, mostly on the stack; the parent window is not owned. A modeless window
/// is ended with DestroyWindow(): a destructor that finds one standing can't reach the derived
/// class's OnDestroy() any more.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT CDialog : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CDialog)

 public:
    /// @param resourceId the number of the dialog's layout. @param parent may be null.
    CDialog(std::uint32_t resourceId, QWidget* parent);
    ~CDialog() override;

    /// Creates, initialises and runs the dialog and returns when it has ended.
    /// @return IDOK, IDCANCEL or whatever EndDialog() was given; -1 if the window couldn't be
    /// created. An EndDialog() inside OnInitDialog ends it before it is shown. However it ended,
    /// its window is destroyed (DestroyWindow) before this returns.
    virtual int DoModal();

    /// Creates and initialises the window without showing it: for modeless dialogs, and once only.
    /// @return 1, or 0 if OnCreate refused.
    int Create();
    /// Ends a window: hides it and runs OnDestroy. Does nothing where there is none.
    virtual void DestroyWindow();
    /// Whether there is a window: from Create() or DoModal() to DestroyWindow().
    bool HasWindow() const { return m_created; }
    /// Ends the dialog with a result and hides it. Called again before the dialog has returned, the
    /// later result counts.
    void EndDialog(int result);

    /// The number of the dialog's layout.
    std::uint32_t ResourceId() const { return m_resourceId; }
    /// The control with an id; null if the layout has none.
    QWidget* GetDlgItem(int controlId) const;
    /// Moves data from the members to the controls (false) or from the controls to the members
    /// (true). @return false if a control's content was refused; its words have been shown, and the
    /// control has the focus.
    bool UpdateData(bool saveAndValidate = true);

 protected:
    /// The window is being created; its title and size are those of the layout.
    /// @return 0, or -1 to give up.
    virtual int OnCreate();
    /// The window and its controls stand. The base moves the members to the controls.
    /// @return 1, or 0 if the focus was set on purpose.
    virtual int OnInitDialog();
    /// The window is going.
    virtual void OnDestroy();
    /// Moves data between members and controls, control by control, by the DDX and DDV functions.
    virtual void DoDataExchange(CDataExchange* pDX);
    /// The base reads the controls and, if that passes, ends the dialog with IDOK.
    virtual void OnOK();
    /// The base ends the dialog with IDCANCEL.
    virtual void OnCancel();
    /// The standard Help button. The base does nothing.
    virtual void OnDlgHelp();
    /// A window message, sent or posted (WindowMessage.h). The base knows none and returns 0.
    virtual std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                          std::intptr_t lParam);

    void accept() override;
    void reject() override;
    bool event(QEvent* event) override;

 private:
    void WireStandardButtons();
    void TakeLayoutSize();
    void Run();
    void Destroyed();

    std::uint32_t m_resourceId;
    bool m_created = false;   ///< OnCreate has passed, OnDestroy is still to come
    bool m_ended = false;     ///< EndDialog has been called
    bool m_starting = false;  ///< DoModal is showing the window, and can't be left yet
    int m_result = IDCANCEL;
};
