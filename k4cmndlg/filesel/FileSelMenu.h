#pragma once

#include <QKeySequence>
#include <QMenu>

#include "k4cmndlg/filesel/FileMenu.h"

namespace k4cmn {

/// The context menu of the file selection dialog. It is made anew for each opening, and tells what
/// was chosen. Opening it returns at once.
/// Ownership: the parent's. Threads: the user interface thread.
class FileSelMenu final : public QMenu {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileSelMenu)

 public:
    explicit FileSelMenu(QWidget* parent);
    ~FileSelMenu() override;

    /// @param withPreview whether "Pre&view" is in it. @param where on the screen.
    void Open(const FileMenuState& state, bool withPreview, const QPoint& where);

    /// The keys that do what a command does; empty for none.
    static QList<QKeySequence> KeysOf(FileCommand command);

 Q_SIGNALS:
    void Chosen(k4cmn::FileCommand command);
};

}  // namespace k4cmn
