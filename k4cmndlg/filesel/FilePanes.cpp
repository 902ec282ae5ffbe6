#include "k4cmndlg/filesel/FilePanes.h"

#include <QFontMetrics>
#include <QStyle>
#include <algorithm>
#include <limits>

#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filesel/SplitterHandle.h"
#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

namespace {

/// What the panes show at first, and at the least.
constexpr int kTreeLetters = 46;
constexpr int kLines = 18;
constexpr int kLeastTreeLetters = 12;
constexpr int kLeastListLetters = 18;
constexpr int kLeastLines = 5;

}  // namespace

FilePanes::FilePanes(QWidget* parent) : QWidget(parent), m_handle(new SplitterHandle(this)) {
    connect(m_handle, &SplitterHandle::Dragged, this, &FilePanes::DragTo);
    connect(m_handle, &SplitterHandle::Stepped, this, &FilePanes::StepBy);
    connect(m_handle, &SplitterHandle::Left, this, &FilePanes::Leave);
}

FilePanes::~FilePanes() = default;

void FilePanes::SetPanes(QWidget* tree, QWidget* list) {
    m_tree = tree;
    m_list = list;
    // The band overlaps the list by the pixel that counts as on it.
    m_handle->raise();
    setTabOrder(tree, m_handle);
    setTabOrder(m_handle, list);
    PlacePanes();
}

// Moving -------------------------------------------------------------------------------------

void FilePanes::AdjustListToTree(std::uint32_t edge) {
    m_edge = edge;
    PlacePanes();
}

SplitterBand FilePanes::Band() const {
    const QPoint origin = mapTo(window(), QPoint(0, 0));
    SplitterBand band;
    band.treeLeft = origin.x();
    band.treeRight = origin.x() + m_tree->x() + m_tree->width();
    band.treeTop = origin.y();
    band.treeBottom = origin.y() + height();
    band.listLeft = origin.x() + m_list->x();
    band.listRight = origin.x() + width();
    return band;
}

void FilePanes::DragTo(int x) {
    const SplitterBand band = Band();
    const int inWindow = band.treeLeft + x;
    if (band.EndsAt(inWindow))
        m_handle->EndDrag();
    MoveTo(band.EdgeAt(inWindow));
}

void FilePanes::StepBy(int pixels) {
    const SplitterBand band = Band();
    MoveTo(band.EdgeAt(band.treeRight + pixels));
}

void FilePanes::MoveTo(int edge) {
    AdjustListToTree(static_cast<std::uint32_t>(std::max(edge, 0)));
    m_isMoved = true;
    Q_EMIT EdgeMoved(m_edge);
}

void FilePanes::Leave() {
    m_isMoved = false;
    Q_EMIT BandLeft();
}

void FilePanes::EndDrag() {
    m_handle->EndDrag();
    if (m_isMoved)
        Leave();
}

// Places and sizes ---------------------------------------------------------------------------

void FilePanes::resizeEvent(QResizeEvent*) {
    PlacePanes();
}

/// Brings an edge in that a larger window was left with, so that both panes can be used.
int FilePanes::InReach(const SplitterBand& band, int edge) const {
    if (edge == band.EdgeAt(edge))
        return edge;
    const int letter = fontMetrics().averageCharWidth();
    const int most = band.listRight - SplitterBand::kWidth - kLeastListLetters * letter;
    return band.EdgeAt(std::max(band.treeLeft + kLeastTreeLetters * letter, std::min(edge, most)));
}

void FilePanes::PlacePanes() {
    if (!m_tree)
        return;
    SplitterBand band = Band();
    constexpr auto kMost = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    const int share = width() * TreeWidthHint() / (TreeWidthHint() + ListWidthHint());
    const int wanted =
        m_edge != 0 ? static_cast<int>(std::min(m_edge, kMost)) : band.treeLeft + share;
    band.Adjust(InReach(band, wanted));
    const int treeWidth = band.treeRight - band.treeLeft;
    const int listLeft = band.listLeft - band.treeLeft;
    m_tree->setGeometry(0, 0, treeWidth, height());
    m_list->setGeometry(listLeft, 0, width() - listLeft, height());
    m_handle->setGeometry(treeWidth, 0, SplitterBand::kWidth + 1, height());
}

int FilePanes::ListWidthHint() const {
    int columns = 0;
    for (const FileColumn& column : FileColumns())
        columns += fontMetrics().horizontalAdvance(ToQt(column.heading)) + kColumnMargin;
    return columns + style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
           2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
}

int FilePanes::TreeWidthHint() const {
    return kTreeLetters * fontMetrics().averageCharWidth();
}

QSize FilePanes::sizeHint() const {
    return {TreeWidthHint() + SplitterBand::kWidth + ListWidthHint(),
            kLines * (fontMetrics().height() + 2)};
}

QSize FilePanes::minimumSizeHint() const {
    const int letters = kLeastTreeLetters + kLeastListLetters;
    return {letters * fontMetrics().averageCharWidth(), kLeastLines * (fontMetrics().height() + 2)};
}

}  // namespace k4cmn
