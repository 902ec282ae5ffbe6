#include "k4cmndlg/filesel/FileSelMenu.h"

#include <string_view>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

FileSelMenu::FileSelMenu(QWidget* parent) : QMenu(parent) {
    setToolTipsVisible(true);
}

FileSelMenu::~FileSelMenu() = default;

void FileSelMenu::Open(const FileMenuState& state, bool withPreview, const QPoint& where) {
    clear();
    for (const FileMenuEntry& entry : kFileMenu) {
        if (entry.command == FileCommand::Preview && !withPreview)
            continue;
        QAction* const action = addAction(QString::fromUtf8(entry.text));
        action->setEnabled(state.IsEnabled(entry.command));
        // What a status bar shows, and behind a line feed what a tool tip does.
        const std::string_view text = entry.toolText;
        const std::size_t end = text.find('\n');
        action->setStatusTip(ToQt(text.substr(0, end)));
        action->setToolTip(ToQt(end == std::string_view::npos ? text : text.substr(end + 1)));
        // To be seen: the keys work without the menu too, and the dialog sees to that.
        action->setShortcuts(KeysOf(entry.command));
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this,
                [this, command = entry.command] { Q_EMIT Chosen(command); });
        if (entry.isGroupEnd)
            addSeparator();
    }
    popup(where);
}

QList<QKeySequence> FileSelMenu::KeysOf(FileCommand command) {
    switch (command) {
        case FileCommand::Cut:
            return {QKeySequence(QStringLiteral("Ctrl+X"))};
        case FileCommand::Copy:
            return {QKeySequence(QStringLiteral("Ctrl+C"))};
        case FileCommand::Paste:
            return {QKeySequence(QStringLiteral("Ctrl+V"))};
        case FileCommand::Rename:
            return {QKeySequence(QStringLiteral("F2"))};
        case FileCommand::Delete:
            return {QKeySequence(QStringLiteral("Del"))};
        case FileCommand::Properties:
            return {QKeySequence(QStringLiteral("Alt+Return")),
                    QKeySequence(QStringLiteral("Alt+Enter"))};
        default:
            return {};
    }
}

}  // namespace k4cmn
