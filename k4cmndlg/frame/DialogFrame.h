#pragma once

#include <QPoint>
#include <cstdint>
#include <memory>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

class DialogPlace;

/// What a person asks help for: the control, and the help id that it carries.
struct HelpRequest {
    QWidget* window = nullptr;    ///< where the popup goes
    std::uint32_t contextId = 0;  ///< the control's help id
    bool isWindow = true;         ///< false for anything but a control window (a menu)
};

/// Whether a dialog comes back where it was left.
enum class PlaceMemory : bool { Off, On };

/// What CK4CmnDialog, CK4CmnDlgBase and CPropertySheet share: position memory and context help. The
/// first two differ in what they add to every help id that goes to the help system; a property
/// sheet, whose title is that of what it shows, has no memory for its place, nor has a dialog that
/// derives from this class itself.
///
/// The place. The profile holds a text "WindowPos" in the section "Dialogs\%s", with the window's
/// title: read when the window is created, under the title that it then has, and written when it is
/// destroyed, under the title that it then has. Only the place is restored, never the size, and a
/// place on a screen that is gone is moved onto one that is there. A dialog that was closed
/// maximized opens maximized; one that was closed minimized opens as a normal window, since nobody
/// would find it otherwise.
///
/// Help ids. A dialog's own is its resource id plus 0x20000. A control's is the dynamic property
/// `helpId` of the layout or, without one, the dialog's resource id in the high word and the
/// `controlId` in the low word; a label or group frame without a `controlId` has 0xFFFF there. A
/// part of a control (the field inside a combo box) asks for the control around it; a group frame
/// without an id of its own is no such control.
///
/// Requests. F1 asks for the control with the focus, the question mark tool for the one that is
/// clicked on, a right click likewise. Shift+F1 takes up the question mark tool, also where the
/// title bar doesn't show it, and lays it down again: it is the way to the help of a control that
/// is disabled and can't have the focus.
/// The control behind a label is its buddy if that can be reached by the Tab key now, otherwise the
/// next one in tab order that can. The buddy goes first because the toolkit keeps labels out of the
/// tab order: where a label stands in its chain says nothing once tab stops have rearranged that.
class K4CMNDLG_EXPORT DialogFrame : public CDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DialogFrame)

 protected:
    DialogFrame(std::uint32_t resourceId, QWidget* parent, std::uint32_t helpOffset,
                PlaceMemory memory = PlaceMemory::On);
    ~DialogFrame() override;

    /// Switches help on a right click on (1) or off (0). It starts off.
    void EnableRightClickHelp(int enable) { m_bRightClickHelp = enable; }
    /// Shows the help of the dialog itself.
    void DefaultWinHelp();

    int OnInitDialog() override;
    int OnCreate() override;
    void OnDestroy() override;
    void OnDlgHelp() override;
    /// The F1 key and the question mark tool (not Shift+F1, which only takes the tool up).
    /// @return 1 if handled.
    virtual int OnHelpInfo(HelpRequest* request);
    /// A right click on a control, or on the dialog itself. @return 1 if handled.
    virtual int OnContextMenu(QWidget* window, const QPoint& point);

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool Ask(QWidget* control, QEvent* event);
    void PassOn();
    QWidget* ControlAround(QWidget* part);
    void ShowPopup(QWidget* window, std::uint32_t contextId);

    int m_bRightClickHelp = 0;
    std::uint32_t m_helpOffset;
    std::unique_ptr<DialogPlace> m_place;  ///< null without a memory for the place
    bool m_passedOn = false;  ///< a request is with the platform, on its way up through the parents
};

/// The context help id of a window or control; 0 if it has none. The dialog's own is set by
/// OnInitDialog.
K4CMNDLG_EXPORT std::uint32_t GetWindowContextHelpId(const QWidget* window);
/// Gives a window or control a context help id (its property `helpId`). 0 takes it away, also from
/// a control that would have one by its `controlId`.
K4CMNDLG_EXPORT void SetWindowContextHelpId(QWidget* window, std::uint32_t helpId);

}  // namespace k4cmn
