#pragma once

#include <QModelIndex>
#include <QPointer>
#include <QString>
#include <QStyledItemDelegate>

#include "k4cmndlg/k4cmndlg_export.h"

class QAbstractItemView;

namespace k4cmn {

/// Draws the rows of a list, and lets a person edit their labels. Enter, Tab and a click elsewhere
/// end the editing, Escape cancels it; none of these keys goes any further.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT LabelDelegate final : public QStyledItemDelegate {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LabelDelegate)

 public:
    /// @param view whose delegate it becomes; it owns the object.
    explicit LabelDelegate(QAbstractItemView* view);

    /// Closes the editor that is open without taking what is in it; without one does nothing.
    void Leave();

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

 Q_SIGNALS:
    /// The editing of a row's label has ended with a text, and the editor is closed.
    void LabelEdited(int row, const QString& text);

 protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

 private:
    void Closed();

    mutable QPointer<QWidget> m_editor;
    mutable int m_row = -1;  ///< whose editing has ended; -1 for none
    mutable QString m_text;
};

}  // namespace k4cmn
