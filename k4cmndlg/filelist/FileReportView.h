#pragma once

#include <QTreeView>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A list of rows with columns and headings, of rows of one height, fast for 100,000 of them.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FileReportView final : public QTreeView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileReportView)

 public:
    explicit FileReportView(QWidget* parent);

    /// Begins the editing of a row's label at once, also while a slow second click waits for its
    /// own.
    void EditLabel(const QModelIndex& index);

    void dataChanged(const QModelIndex& first, const QModelIndex& last,
                     const QList<int>& roles = {}) override;

 protected:
    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace k4cmn
