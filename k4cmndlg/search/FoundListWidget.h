#pragma once

#include <QWidget>
#include <cstddef>
#include <optional>

#include "k4cmndlg/filelist/RowLabelSize.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QModelIndex;

namespace k4cmn {

class FileReportView;
class FoundListModel;
class FoundRows;
class RowSelection;

/// The list of the search dialog: shows FoundRows in columns, with one row selectable. 100,000 rows
/// are shown without a stall: texts are made for what can be seen.
///
/// The selection belongs to a row's position: a sort leaves it where it stands. A click beside all
/// rows ends it. A person types to find a row. Where a row has gone, the arrow keys go on with the
/// one that came there.
///
/// Keys that aren't its own, Delete and Alt+Enter among them, go on to the parent.
///
/// Ownership: the parent's; the rows aren't owned. Threads: the user interface thread.
class K4CMNDLG_EXPORT FoundListWidget final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FoundListWidget)

 public:
    /// @param parent may be null.
    explicit FoundListWidget(QWidget* parent);
    ~FoundListWidget() override;

    /// @param rows must outlive the widget, or be taken away by null.
    void SetRows(const FoundRows* rows);
    /// Shows what the rows hold now. Another number of rows ends the selection; the same number
    /// keeps it. SelectionChanged() isn't told of that.
    void RowsChanged();

    std::optional<std::size_t> SelectedRow() const;
    /// Selects a row and scrolls it into view; tells SelectionChanged() if that is news.
    void SelectRow(std::size_t row);

    /// The size of the first row's label on the screen; of a line of the font where there is none.
    RowLabelSize FirstLabelSize() const;

 Q_SIGNALS:
    /// A person, or SelectRow(), has changed which row is selected; also to none.
    void SelectionChanged();
    void HeadingClicked(int column);
    /// A double click anywhere in the list, also beside all rows. Told from the event loop, when
    /// the list is done with the click.
    void DoubleClicked();
    /// The context menu is asked for, over a row, which is selected by now. @param place of the
    /// screen.
    void MenuRequested(const QPoint& place);
    /// Enter on the selected row; without one the key goes on to the parent. Told from the event
    /// loop, when the list is done with the key.
    void Chosen();

 protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void SetUpView();
    bool TakeKey(const QKeyEvent& key);
    void LookAtMouse(const QEvent& event);
    void AskForMenu(const QModelIndex& row, const QPoint& place);
    void AskForMenuByKey();

    FoundListModel* const m_model;
    RowSelection* const m_selection;
    FileReportView* const m_report;
    bool m_isReplacing = false;  ///< the rows are, not a person
};

}  // namespace k4cmn
