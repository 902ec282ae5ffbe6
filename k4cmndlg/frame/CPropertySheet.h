#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/k4cmndlg_export.h"

class CPropertyPage;
class QSpacerItem;
class QTabWidget;
class QVBoxLayout;

/// The id of a sheet's Apply button.
enum : int { ID_APPLY_NOW = 0x3021 };

/// A dialog of several pages with a tab each, of which one is in front. A modal sheet has the
/// buttons OK, Cancel, Apply and Help in a row below the pages; a modeless one has none of its own.
///
/// A page is created when it comes to the front for the first time, and told whenever it comes
/// (OnSetActive) and before it is left (OnKillActive), which it may refuse. It is still in front
/// while it is asked. What the page in front shows is read by ReadActivePage(), or by whoever calls
/// its UpdateData(). Ctrl+Tab and Ctrl+Shift+Tab go round the pages, whatever has the focus.
///
/// A derived class adds its pages in its constructor. It may replace the buttons by its own
/// (HideStandardButtons) and keep room for controls beside the pages (SetMargin).
///
/// Context help is that of the library's own dialogs; a control asks by the number of its page.
///
/// Ownership: the caller's, of the sheet and of its pages. Modal: `DoModal()`. Modeless:
/// `Create()`, `show()`, and in the end `DestroyWindow()`, also in the destructor of the derived
/// class. Threads: the user interface thread.
class K4CMNDLG_EXPORT CPropertySheet : public k4cmn::DialogFrame {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CPropertySheet)

 public:
    /// @param captionId the resource number of the title. @param parent may be null.
    /// @param firstPage index of the page that is in front at first; one that isn't there is 0.
    CPropertySheet(std::uint32_t captionId, QWidget* parent, int firstPage = 0);
    /// @param caption the title.
    CPropertySheet(const std::string& caption, QWidget* parent, int firstPage = 0);
    ~CPropertySheet() override;

    /// Adds a page behind the others, before the sheet has a window. The page isn't owned.
    void AddPage(CPropertyPage* page);
    int GetPageCount() const;
    /// The page with an index; null if there is none.
    CPropertyPage* GetPage(int index) const;
    /// The index of the page in front; -1 while there is no window.
    int GetActiveIndex() const { return HasWindow() ? m_active : -1; }
    /// The page in front; null while there is no window.
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    /// Brings a page to the front; before there is a window, chooses the first one.
    /// @return 1, or 0 if there is no such page, or the one in front refused to be left.
    int SetActivePage(int index);
    /// Moves what the page in front shows to its members. @return false if it was refused.
    bool ReadActivePage();

    int DoModal() override;

 protected:
    /// What becomes of the row of the standard buttons.
    enum class ButtonRow : bool { Keep, GiveBack };

    int OnInitDialog() override;
    void OnDestroy() override;
    /// OK: the base reads the page in front and, if that passes, closes with IDOK.
    void OnOK() override;
    /// Cancel, Escape, the window's close button: the base closes with IDCANCEL.
    void OnCancel() override;
    /// Apply: the base reads the page in front.
    virtual void OnApply();

    /// Ends a modal sheet with a result; destroys the window of a modeless one. Nothing without a
    /// window.
    void Close(int result);
    /// Hides and disables the standard buttons for good, and takes their ids away, for those of a
    /// derived class. @param row whether a modal sheet keeps the room of their row.
    void HideStandardButtons(ButtonRow row = ButtonRow::Keep);
    /// Keeps room for a derived class's controls. The window grows or shrinks by the difference to
    /// the room that was kept before.
    /// @param right beside the pages, @param bottom below them and the standard buttons, in pixels.
    void SetMargin(int right, int bottom);
    /// Where the pages with their tabs stand in the window.
    QRect PagesPlace() const;
    /// Whether the pages keep the height that they have, so that a window which becomes higher has
    /// more room below them. One that becomes lower takes from them in either case.
    void KeepPagesHeight(bool kept);

 private:
    friend class CPropertyPage;
    void MakeStandardButtons();
    void ShowTab(int index);
    void OnTabChanged(int index);
    void Enter(int index);
    void Turn(int step);
    void ShowRow(bool shown);
    int RowHeight() const;

    QVBoxLayout* m_column;
    QTabWidget* m_tabs;
    QWidget* m_row;                  ///< of the standard buttons
    QSpacerItem* m_below = nullptr;  ///< takes the height that the pages leave
    int m_first;
    int m_active = -1;
    bool m_modal = false;   ///< DoModal is running
    bool m_rowKept = true;  ///< a modal sheet has the row
};
