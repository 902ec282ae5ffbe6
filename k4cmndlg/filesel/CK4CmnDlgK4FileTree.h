#pragma once

#include <QPointer>
#include <QRect>
#include <cstdint>
#include <optional>
#include <string>

#include "k4cmndlg/filesel/QuickTreePlace.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/k4cmndlg_export.h"

class K4QuickFileTreeCtrl;

/// A quick file picker: a small window over all others, without a caption, that is filled by the
/// suite's file tree (K4QuickFileTreeCtrl). It tells its parent what happens, by two window
/// messages that are posted:
///
/// - WM_QUICK_TREE_CHOSEN: a file was double-clicked, or Enter was pressed on it;
/// - WM_QUICK_TREE_LEFT: the window has lost the focus; the first parameter is the widget that gets
///   it, 0 where that is none of this program.
///
/// What then happens to the window is the parent's decision. Escape gives the focus back to the
/// parent; where there is none to take it, it ends the window.
///
/// Only the lower border can be moved, by the mouse or by Alt+Up and Alt+Down, and only where the
/// window is wider than a fifth of the screen and stays higher than a seventh of it.
///
/// Use: `m_tree = std::make_unique<CK4CmnDlgK4FileTree>(this, "My Application", 1);`
/// `m_tree->SetInitialPosition(place, 1); m_tree->Create();`, and `m_tree->DestroyWindow()` or
/// its destruction in the end, which keep the height.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgK4FileTree final : public CDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgK4FileTree)

 public:
    /// Opens nothing yet: Create() fills the tree and shows the window.
    /// @param parent gets the messages; null if nobody wants them. It must outlive the window or
    ///        delete it.
    /// @param registryKey the key of the user's settings that keeps the height in the value
    ///        "Quick_Tree_Size"; null if none does.
    /// @param expand not 0: the first server is open when the window opens.
    CK4CmnDlgK4FileTree(QWidget* parent, const char* registryKey, int expand);
    ~CK4CmnDlgK4FileTree() override;

    /// Confines the tree to one sign type when the window opens.
    void SetSignDirectory(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          tag_K4_PIXEL_TECH pixel);
    /// Where the window opens, in pixels of the desktop. A place whose left edge or top lies off
    /// the screen is moved to 0 then. Without a place it opens over its parent.
    /// @param useStoredSize not 0: the height is the kept one, or without one that of the window as
    ///        it is, and ends at the end of the usable screen; less than 10 becomes 100.
    void SetInitialPosition(const QRect& rect, int useStoredSize);
    /// Moves the window; one that isn't open will open there.
    /// @param useStoredSize not 0: the height is the kept one, or without one a seventh of the
    ///        usable screen, and ends at its end; 0 becomes 100.
    void MoveDialog(int x, int y, int width, int height, int useStoredSize);

    /// The path of the selected item if that is a file, else the empty text.
    void GetSelectedFile(std::string& path) const;
    /// Selects the item of a path; before the window has opened there is none. An empty path, and
    /// one that leads nowhere, change nothing.
    void SetSelectedFile(const std::string& path);

 protected:
    int OnInitDialog() override;
    void OnDestroy() override;
    void OnOK() override;
    void OnCancel() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    struct SignType {
        std::uint32_t rows;
        std::uint32_t columns;
        tag_K4_SIGN_COLOR color;
        tag_K4_PIXEL_TECH pixel;
    };

    void SetUpKeys();
    bool IsFileSelected() const;
    void FileChosen();
    void FocusMoved(QWidget* from, QWidget* to);
    void RepaintTree();
    void ChangeHeight(int height);
    void ShowAtPlace();

    const QPointer<QWidget> m_target;
    const k4cmn::QuickTreePlace m_keeper;
    const bool m_opensRoot;
    K4QuickFileTreeCtrl* const m_tree;
    std::optional<SignType> m_signType;
    std::optional<QRect> m_place;
};
