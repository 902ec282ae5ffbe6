#include "k4cmndlg/filelist/ListLooks.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QStyle>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

int AlignmentOf(const FileColumn& column) {
    const Qt::Alignment side = column.isRightAligned ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(side | Qt::AlignVCenter);
}

QVariant HeadingData(const std::vector<FileColumn>& columns, int section,
                     Qt::Orientation orientation, int role) {
    const auto at = static_cast<std::size_t>(section);
    if (orientation != Qt::Horizontal || at >= columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return ToQt(columns[at].heading);
    if (role == Qt::TextAlignmentRole)
        return AlignmentOf(columns[at]);
    return {};
}

void ShapeColumns(QHeaderView& header) {
    const QFontMetrics font = header.fontMetrics();
    for (int column = 0; column < header.count(); ++column) {
        const QVariant heading =
            header.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole);
        header.resizeSection(column, font.horizontalAdvance(heading.toString()) + kColumnMargin);
    }
}

RowLabelSize FirstLabelSize(const QAbstractItemView& view) {
    const QModelIndex first = view.model()->index(0, 0);
    const QRect place = first.isValid() ? view.visualRect(first) : QRect();
    if (place.isEmpty())
        return {view.fontMetrics().averageCharWidth(), view.fontMetrics().height()};
    const int margins = 2 * (view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    return {place.width() - view.iconSize().width() - margins, place.height()};
}

}  // namespace k4cmn
