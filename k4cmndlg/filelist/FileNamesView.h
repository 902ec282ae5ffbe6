#pragma once

#include <QListView>
#include <cstddef>
#include <cstdint>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// Names with images: in columns, in rows, or under large images. Every place has one size, from
/// the names that the view is told of, so that 100,000 of them are laid out at once.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FileNamesView final : public QListView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileNamesView)

 public:
    enum class Form : std::uint8_t { Columns, Rows, LargeImages };

    explicit FileNamesView(QWidget* parent);

    /// At first names stand in columns.
    void SetForm(Form form);
    Form ShownForm() const { return m_form; }

    /// The size of the place of each name with its image.
    QSize PlaceSize() const;

    /// Begins the editing of a row's label at once, also while a slow second click waits for its
    /// own.
    void EditLabel(const QModelIndex& index);

    void dataChanged(const QModelIndex& first, const QModelIndex& last,
                     const QList<int>& roles = {}) override;
    void reset() override;

 protected:
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void changeEvent(QEvent* event) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

 private:
    int WidestName() const;
    void Shape();

    Form m_form = Form::Columns;
    mutable int m_widest = -1;  ///< -1: not measured yet
};

}  // namespace k4cmn
