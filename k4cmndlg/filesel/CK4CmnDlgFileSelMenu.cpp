#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QShortcut>

#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"
#include "k4cmndlg/filesel/FileSelMenu.h"
#include "k4cmndlg/filesel/FileSelParts.h"
#include "ui_FileSelection.h"

using k4cmn::FileCommand;
using k4cmn::FileMenuState;
using k4cmn::FileSelMenu;
using k4cmn::FileSelParts;

// Keys ---------------------------------------------------------------------------------------

void CK4CmnDlgFileSel::SetUpKeys() {
    const auto add = [this](QWidget* area, const QKeySequence& key, auto action) {
        const auto context = area == this ? Qt::WindowShortcut : Qt::WidgetWithChildrenShortcut;
        auto* const shortcut = new QShortcut(key, area);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, this, action, Qt::QueuedConnection);
    };
    QWidget* const tree = m_parts->ui->tree;
    QWidget* const list = m_parts->ui->list;
    for (const k4cmn::FileMenuEntry& entry : k4cmn::kFileMenu) {
        const FileCommand command = entry.command;
        const bool isOfRows = command == FileCommand::Rename || command == FileCommand::Delete;
        for (const QKeySequence& key : FileSelMenu::KeysOf(command)) {
            add(list, key, [this, command] { RunByKey(command); });
            if (!isOfRows)
                add(tree, key, [this, command] { RunByKey(command); });
        }
    }
    for (QWidget* const area : {tree, list}) {
        add(area, QKeySequence(Qt::Key_Backspace), [this] { OnUpDir(); });
        add(area, QKeySequence(Qt::SHIFT | Qt::Key_F10), [this] { OpenMenuByKey(); });
    }
    // Enter there is this button's, and not that of OK.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        add(m_parts->ui->up, QKeySequence(key), [this] { OnUpDir(); });
    add(this, QKeySequence(Qt::ALT | Qt::Key_Up), [this] { OnUpDir(); });
    add(this, QKeySequence(Qt::Key_F5), [this] { ShowFilesList(); });
}

void CK4CmnDlgFileSel::RunByKey(FileCommand command) {
    if (!m_parts->view.IsEditing() && m_parts->selector.MenuByKey().IsEnabled(command))
        Run(command);
}

// The menu -----------------------------------------------------------------------------------

int CK4CmnDlgFileSel::OnContextMenu(QWidget* window, const QPoint& point) {
    const Ui::FileSelectionDialog& ui = *m_parts->ui;
    const bool isTree = window == ui.tree || ui.tree->isAncestorOf(window);
    const bool isList = window == ui.list || ui.list->isAncestorOf(window);
    // The field over a label has the menu of a field.
    if ((!isTree && !isList) || (isList && m_parts->view.IsEditing()))
        return CK4CmnDlgBase::OnContextMenu(window, point);
    OpenMenu(isTree ? ui.tree->ItemAt(ui.tree->viewport()->mapFromGlobal(point)) : nullptr, point);
    return 1;
}

void CK4CmnDlgFileSel::OpenMenuByKey() {
    // The same request as that of the menu key, which not every platform makes of these keys.
    const auto* const pane = qobject_cast<QAbstractItemView*>(focusWidget());
    if (!pane)
        return;
    const QPoint place = pane->visualRect(pane->currentIndex()).center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, place,
                              pane->viewport()->mapToGlobal(place));
    QApplication::sendEvent(pane->viewport(), &request);
}

void CK4CmnDlgFileSel::OnFileOptions() {
    OpenMenu(nullptr, frameGeometry().topLeft() + QPoint(k4cmn::kMenuOffset, k4cmn::kMenuOffset));
}

void CK4CmnDlgFileSel::OpenMenu(k4cmn::FileTreeItem* item, const QPoint& where) {
    const FileMenuState state = m_parts->selector.OpenMenu(item);
    auto* menu = findChild<FileSelMenu*>();
    if (!menu) {
        menu = new FileSelMenu(this);
        connect(menu, &FileSelMenu::Chosen, this, &CK4CmnDlgFileSel::Run, Qt::QueuedConnection);
    }
    menu->Open(state, m_parts->selector.HasPreviewEntry(), where);
}
