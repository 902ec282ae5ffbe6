#pragma once

#include <QTreeView>

namespace k4suite {

/// The list of a quick tree's items, as a person handles it: one item is selected, wherever the
/// keyboard stands, and an item that is closed takes over the selection from what stands below it.
/// Ownership: the parent's. Threads: the user interface thread.
class QuickTreeView final : public QTreeView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QuickTreeView)

 public:
    explicit QuickTreeView(QWidget* parent);
    ~QuickTreeView() override;

    /// Selects an item, and scrolls it into view where everything above it is open.
    void SelectItem(const QModelIndex& index);
    /// The selected item; invalid if there is none.
    QModelIndex SelectedItem() const;

 Q_SIGNALS:
    /// The selected item was double-clicked, or Enter was pressed on it.
    void Chosen();
    /// The list was scrolled up or down, and shows that already.
    void Scrolled();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// As wide as the longest text that is shown, and no narrower than the window.
    int sizeHintForColumn(int column) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

 private:
    void TakeOverSelection(const QModelIndex& closed);
};

}  // namespace k4suite
