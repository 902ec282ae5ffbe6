#pragma once

#include <QVariant>
#include <vector>

#include "k4cmndlg/filelist/ColumnTexts.h"
#include "k4cmndlg/filelist/RowLabelSize.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QAbstractItemView;
class QHeaderView;

namespace k4cmn {

/// @name What the models and views of lists of files have in common.
/// @{

/// The alignment of a column's texts and heading: a Qt::Alignment as data of a model.
K4CMNDLG_EXPORT int AlignmentOf(const FileColumn& column);

/// What the headerData() of a model with these columns gives.
K4CMNDLG_EXPORT QVariant HeadingData(const std::vector<FileColumn>& columns, int section,
                                     Qt::Orientation orientation, int role);

/// Makes each column as wide as its heading's text and kColumnMargin.
K4CMNDLG_EXPORT void ShapeColumns(QHeaderView& header);

/// The size of the label of the first row that a view shows, without its image; of a line of the
/// font where there is no row.
K4CMNDLG_EXPORT RowLabelSize FirstLabelSize(const QAbstractItemView& view);
/// @}

}  // namespace k4cmn
