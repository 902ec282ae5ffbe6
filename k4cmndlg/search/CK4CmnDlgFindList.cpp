#include <QMenu>
#include <QPointer>
#include <QShortcut>
#include <array>
#include <memory>

#include "k4cmndlg/filelist/FilePrinting.h"
#include "k4cmndlg/filelist/contracts/Printing.h"
#include "k4cmndlg/frame/FileOperations.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/contracts/Shell.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/FindParts.h"
#include "k4cmndlg/search/FoundListReport.h"

using k4cmn::FindParts;

// Selecting, choosing and sorting ------------------------------------------------------------

void CK4CmnDlgFind::OnSelectionChanged() {
    // The sheet may show messages, and so follows when the list is done with what led here.
    if (m_parts->TakeSelection())
        QMetaObject::invokeMethod(this, &CK4CmnDlgFind::FollowSelection, Qt::QueuedConnection);
}

void CK4CmnDlgFind::FollowSelection() {
    const std::shared_ptr<FindParts> parts = m_parts;
    if (parts->selection.IsSequence())
        parts->properties.MoveTo(parts->selection.Path());
}

void CK4CmnDlgFind::OnDoubleClick() {
    // What has ended meanwhile stays as it ended.
    if (!m_parts->list || !isVisible())
        return;
    m_parts->TakeSelection();
    Close(IDOK);
}

void CK4CmnDlgFind::OnSortColumn(int column) {
    m_parts->rows.SortColumn(column);
    m_parts->ShowRows(false);
    // The selection has stayed where it was, and another file has come there.
    if (m_parts->list->SelectedRow())
        OnSelectionChanged();
}

// The menu -----------------------------------------------------------------------------------

struct CK4CmnDlgFind::MenuEntry {
    const char* text;
    void (CK4CmnDlgFind::*run)();
    bool (*isEnabled)(const k4cmn::FindSelection& selection);
    std::array<const char*, 2> keys;  ///< null for none
};

namespace {

bool IsSequence(const k4cmn::FindSelection& selection) {
    return selection.IsSequence();
}

bool HasKnownType(const k4cmn::FindSelection& selection) {
    return selection.type != k4cmn::kUnknownSearchType;
}

bool Always(const k4cmn::FindSelection&) {
    return true;
}

}  // namespace

const CK4CmnDlgFind::MenuEntry CK4CmnDlgFind::kMenu[] = {
    {"P&roperties", &CK4CmnDlgFind::OnPopupProperties, &IsSequence, {"Alt+Return", "Alt+Enter"}},
    {"&Delete", &CK4CmnDlgFind::OnPopupDelete, &HasKnownType, {"Del", nullptr}},
    {"&Print...", &CK4CmnDlgFind::OnPopupPrint, &HasKnownType, {}},
    {"Print &File List", &CK4CmnDlgFind::OnPopupPrintFileList, &Always, {}},
};

bool CK4CmnDlgFind::IsEnabled(const MenuEntry& entry) const {
    return m_parts->list && m_parts->list->SelectedRow() && entry.isEnabled(m_parts->selection);
}

void CK4CmnDlgFind::Choose(const MenuEntry& entry) {
    // What has ended meanwhile stays as it ended.
    if (isVisible() && IsEnabled(entry))
        (this->*entry.run)();
}

void CK4CmnDlgFind::SetUpKeys() {
    for (const MenuEntry& entry : kMenu) {
        for (const char* key : entry.keys) {
            if (!key)
                continue;
            auto* const shortcut =
                new QShortcut(QKeySequence(QString::fromUtf8(key)), m_parts->list);
            shortcut->setContext(Qt::WidgetWithChildrenShortcut);
            const auto choose = [this, &entry] { Choose(entry); };
            connect(shortcut, &QShortcut::activated, this, choose, Qt::QueuedConnection);
        }
    }
}

void CK4CmnDlgFind::OpenMenu(const QPoint& where) {
    if (!m_menu)
        m_menu = new QMenu(this);
    m_menu->clear();
    for (const MenuEntry& entry : kMenu) {
        QAction* const action = m_menu->addAction(QString::fromUtf8(entry.text));
        action->setEnabled(IsEnabled(entry));
        // To be seen: the keys work without the menu too.
        if (entry.keys[0])
            action->setShortcut(QKeySequence(QString::fromUtf8(entry.keys[0])));
        action->setShortcutContext(Qt::WidgetShortcut);
        const auto choose = [this, &entry] { Choose(entry); };
        connect(action, &QAction::triggered, this, choose, Qt::QueuedConnection);
    }
    m_menu->popup(where);
}

// What the entries do. A message may end or delete the dialog: so each keeps its parts for as long
// as it works on them.

void CK4CmnDlgFind::OnPopupProperties() {
    const std::shared_ptr<FindParts> parts = m_parts;
    parts->TakeSelection();
    if (parts->selection.IsSequence())
        parts->properties.Open(parts->selection.Path());
}

void CK4CmnDlgFind::OnPopupDelete() {
    const std::shared_ptr<FindParts> parts = m_parts;
    const auto row = parts->list ? parts->list->SelectedRow() : std::nullopt;
    if (!row)
        return;
    const std::vector<std::string> paths =
        parts->selection.PathsToDelete({parts->rows.Row(*row).name});
    if (paths.empty() || !k4cmnDeleteFile(paths, k4cmn::FOF_ALLOWUNDO))
        return;
    parts->rows.RemoveDeleted(paths);
    parts->ShowRows(false);
}

void CK4CmnDlgFind::OnPopupPrint() {
    const std::shared_ptr<FindParts> parts = m_parts;
    parts->TakeSelection();
    if (parts->selection.CanPrint())
        k4cmn::PrintFile(parts->selection.Path(), parts->prompt);
}

void CK4CmnDlgFind::OnPopupPrintFileList() {
    const std::shared_ptr<FindParts> parts = m_parts;
    const std::unique_ptr<k4cmn::PrintSurface> surface =
        k4cmn::Provided<k4cmn::Printing>::Current().Choose(this);
    if (!surface || !parts->list)
        return;
    const k4cmn::WaitCursor wait;
    k4cmn::PrintFoundList(parts->rows, *surface, parts->list->FirstLabelSize());
}
