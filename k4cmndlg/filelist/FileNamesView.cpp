#include "k4cmndlg/filelist/FileNamesView.h"

#include <QEvent>
#include <QMouseEvent>
#include <QStyle>
#include <algorithm>
#include <array>

#include "k4cmndlg/filelist/FileImages.h"

namespace k4cmn {

namespace {

constexpr int kLargest = 40;          // characters that a name in a row or column gets at the most
constexpr int kUnderLargeImage = 14;  // characters in each line of a name there
constexpr int kLinesUnderLargeImage = 2;
constexpr int kGap = 8;

}  // namespace

FileNamesView::FileNamesView(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setWrapping(true);
    setResizeMode(Adjust);
    setMovement(Static);
    setSelectionMode(ExtendedSelection);
    Shape();
}

void FileNamesView::SetForm(Form form) {
    m_form = form;
    Shape();
}

void FileNamesView::Shape() {
    const bool isLarge = m_form == Form::LargeImages;
    setIconSize(FileImages::SizeBeside(fontMetrics()) * (isLarge ? 2 : 1));
    setWordWrap(isLarge);
    setFlow(m_form == Form::Columns ? TopToBottom : LeftToRight);
    m_widest = -1;
    scheduleDelayedItemsLayout();
}

QSize FileNamesView::PlaceSize() const {
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const QFontMetrics font = fontMetrics();
    if (m_form == Form::LargeImages)
        return {kUnderLargeImage * font.averageCharWidth() + margins + kGap,
                iconSize().height() + margins + kLinesUnderLargeImage * font.lineSpacing() + kGap};
    const int widest = std::min(WidestName(), kLargest * font.averageCharWidth());
    return {iconSize().width() + margins + widest + margins + kGap,
            std::max(iconSize().height(), font.height()) + margins};
}

int FileNamesView::WidestName() const {
    if (m_widest >= 0)
        return m_widest;
    // Only the longest names are measured, since measuring all of 100,000 takes long.
    std::array<QString, 16> longest;
    const int count = model() ? model()->rowCount(rootIndex()) : 0;
    for (int row = 0; row < count; ++row) {
        QString name = model()->index(row, modelColumn(), rootIndex()).data().toString();
        auto shortest = std::min_element(
            longest.begin(), longest.end(),
            [](const QString& one, const QString& other) { return one.size() < other.size(); });
        if (name.size() > shortest->size())
            *shortest = std::move(name);
    }
    m_widest = 0;
    for (const QString& name : longest)
        m_widest = std::max(m_widest, fontMetrics().horizontalAdvance(name));
    return m_widest;
}

void FileNamesView::EditLabel(const QModelIndex& index) {
    // The toolkit's way to end that waiting, during which it edits nothing.
    edit(index, CurrentChanged, nullptr);
    edit(index, AllEditTriggers, nullptr);
}

void FileNamesView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                                const QList<int>& roles) {
    m_widest = -1;
    // Of a range the toolkit would look for the place of every row, also of those out of sight.
    QListView::dataChanged(first, last.siblingAtRow(first.row()), roles);
    scheduleDelayedItemsLayout();
}

void FileNamesView::rowsInserted(const QModelIndex& parent, int first, int last) {
    m_widest = -1;
    QListView::rowsInserted(parent, first, last);
}

void FileNamesView::reset() {
    m_widest = -1;
    QListView::reset();
}

void FileNamesView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Shape();
}

void FileNamesView::initViewItemOption(QStyleOptionViewItem* option) const {
    QListView::initViewItemOption(option);
    if (m_form != Form::LargeImages)
        return;
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
}

void FileNamesView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListView::mouseDoubleClickEvent(event);
}

QRegion FileNamesView::visualRegionForSelection(const QItemSelection&) const {
    // The toolkit would look at the place of every selected name, also of those out of sight.
    return viewport()->rect();
}

}  // namespace k4cmn
