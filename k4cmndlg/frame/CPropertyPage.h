#pragma once

#include <cstdint>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/k4cmndlg_export.h"

class CPropertySheet;

/// One page of a property sheet: a dialog without a window of its own, whose title stands on its
/// tab. A derived class sets up its layout in its constructor, as any dialog does.
///
/// The page's window is created when it is shown for the first time (OnCreate, OnInitDialog) and
/// destroyed with that of the sheet. Enter and Escape in the page, where a control has no use for
/// them itself, are the sheet's.
///
/// Ownership: the caller's, mostly a member of the sheet. A page that goes leaves its sheet.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT CPropertyPage : public CDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CPropertyPage)

 public:
    /// @param resourceId the number of the page's layout.
    explicit CPropertyPage(std::uint32_t resourceId);
    ~CPropertyPage() override;

    /// The sheet that the page was added to; null before.
    CPropertySheet* GetSheet() const;
    /// Whether the page is the one that its sheet shows.
    bool IsActive() const;

 protected:
    /// The page has come to the front. The base moves the members to the controls.
    virtual void OnSetActive();
    /// Another page is wanted. The base moves the controls to the members.
    /// @return 1, or 0 to stay in front: a control's content was refused.
    virtual int OnKillActive();

    /// The base gives the page its help id, as a dialog has one.
    int OnInitDialog() override;
    /// Enter and Escape, where they reach the page at all: the sheet's OnOK and OnCancel.
    void OnOK() override;
    void OnCancel() override;

    void setVisible(bool visible) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    friend class CPropertySheet;
};
