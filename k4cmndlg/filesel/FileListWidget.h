#pragma once

#include <QStackedWidget>
#include <QString>
#include <cstddef>
#include <vector>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filelist/RowLabelSize.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QAbstractItemView;

namespace k4cmn {

class FileListModel;
class FileNamesView;
class FileReportView;
class LabelDelegate;
class RowSelection;

/// The list of the file selection dialog: shows FileRows as a report with columns or as a list of
/// names, with several rows selectable and labels that can be edited. 100,000 rows are shown
/// without a stall: texts are made for what can be seen.
///
/// The selection belongs to the rows' positions: a sort leaves it where it stands. Both views share
/// it. A person types to find a row, F2 or a slow second click edits its label, Enter edits
/// nothing: it goes to the dialog. While a label is edited Enter ends that and nothing else, and
/// Escape cancels it.
///
/// A right click selects the row under it, unless that is selected already. The context-menu event,
/// of the mouse and of the keyboard, goes on to the parent; one of the mouse has its place in the
/// parent's coordinates.
///
/// Ownership: the parent's; the rows aren't owned. Threads: the user interface thread.
class K4CMNDLG_EXPORT FileListWidget final : public QStackedWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileListWidget)

 public:
    explicit FileListWidget(QWidget* parent);
    ~FileListWidget() override;

    /// @param rows must outlive the widget, or be taken away by null.
    void SetRows(const FileRows* rows);
    void SetImages(const FileImages& images);

    /// Shows what the rows hold now. Another number of rows ends the selection; the same number
    /// keeps it. SelectionChanged() isn't told of that. A label that is being edited is left.
    /// @param withColumns the columns are made anew, as FileColumns() tells them. Until the first
    ///        time there are none, and nothing is shown.
    void RowsChanged(bool withColumns);

    /// The selected rows, in ascending order.
    std::vector<std::size_t> SelectedRows() const;
    /// Selects one row alone and scrolls it into view; tells SelectionChanged() if that is news.
    void SelectRow(std::size_t row);
    /// Begins the editing of a row's label.
    void EditRow(std::size_t row);

    /// @param details the report with its columns, else the list of names. At first it is the
    ///        report.
    void ShowDetails(bool details);
    bool ShowsDetails() const;

    /// The size of the first row's label on the screen; of a line of the font where there is none.
    RowLabelSize FirstLabelSize() const;

 Q_SIGNALS:
    /// A person, or SelectRow(), has changed which rows are selected.
    void SelectionChanged();
    void HeadingClicked(int column);
    void RowDoubleClicked(std::size_t row);
    /// The editing of a label has ended with a text; a cancelled one tells nothing.
    void LabelEdited(std::size_t row, const QString& text);

 protected:
    void changeEvent(QEvent* event) override;

 private:
    LabelDelegate* SetUp(QAbstractItemView& view);
    QAbstractItemView& Shown() const;

    FileListModel* const m_model;
    RowSelection* const m_selection;
    FileReportView* const m_report;
    FileNamesView* const m_names;
    LabelDelegate* const m_reportLabels;
    LabelDelegate* const m_namesLabels;
    bool m_isReplacing = false;  ///< the rows are, not a person
};

}  // namespace k4cmn
