#include "k4cmndlg/filelist/LabelDelegate.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

#include "k4cmndlg/filelist/FileNamesView.h"

namespace k4cmn {

LabelDelegate::LabelDelegate(QAbstractItemView* view) : QStyledItemDelegate(view) {
    view->setItemDelegate(this);
    // The view closes the editor first: it was connected before.
    connect(this, &QAbstractItemDelegate::closeEditor, this, &LabelDelegate::Closed);
}

QSize LabelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (const auto* const names = qobject_cast<const FileNamesView*>(option.widget))
        return names->PlaceSize();
    return QStyledItemDelegate::sizeHint(option, index);
}

QWidget* LabelDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor)
        editor->setAccessibleName(tr("Name"));
    m_editor = editor;
    return editor;
}

void LabelDelegate::Leave() {
    if (m_editor)
        Q_EMIT closeEditor(m_editor, RevertModelCache);
}

void LabelDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                 const QModelIndex& index) const {
    if (const auto* const field = qobject_cast<QLineEdit*>(editor)) {
        m_row = index.row();
        m_text = field->text();
    }
}

bool LabelDelegate::eventFilter(QObject* object, QEvent* event) {
    auto* const editor = qobject_cast<QWidget*>(object);
    if (editor && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
            case Qt::Key_Enter:
            case Qt::Key_Return:
            case Qt::Key_Tab:
            case Qt::Key_Backtab:
                Q_EMIT commitData(editor);
                Q_EMIT closeEditor(editor, NoHint);
                return true;
            default:
                break;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

void LabelDelegate::Closed() {
    // It is deleted later, and can't be closed again.
    m_editor.clear();
    const int row = std::exchange(m_row, -1);
    if (row >= 0)
        Q_EMIT LabelEdited(row, std::exchange(m_text, {}));
}

}  // namespace k4cmn
