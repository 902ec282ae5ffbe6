#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <algorithm>
#include <array>

#include "k4cmndlg/frame/HelpDecision.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/FindCommand.h"
#include "k4cmndlg/search/FindParts.h"

using k4cmn::FindParts;
using k4cmn::FoundListWidget;

namespace {

constexpr std::uint32_t kSheet = 118;  // the sheet's number for its help

enum ControlId : std::uint32_t {
    kFind = k4cmn::kFindCommand,
    kNew = 1161,
    kPrevious = 1162,
    kResults = 1163,
};

// In pixels.
constexpr int kStripGap = 10;     // right of the buttons
constexpr int kAboveButtons = 4;  // and the height of one of them
constexpr int kBetweenButtons = 2;
constexpr int kListRoom = 150;  // what the window grows by for the list
constexpr int kListLeft = 5;
constexpr int kListRight = 10;   // to the window's right edge
constexpr int kListAbove = 5;    // how far the list reaches up into the old window,
constexpr int kListBelow = 120;  // and down from its lower edge
constexpr int kCountLines = 3;

void Identify(QWidget* control, std::uint32_t id) {
    control->setProperty("controlId", id);
    k4cmn::SetWindowContextHelpId(control, kSheet << 16 | id);
}

/// The strip's buttons, from the top.
std::array<QWidget*, 4> ButtonsOf(const FindParts& parts) {
    return {parts.find, parts.cancel, parts.isNew, parts.isPrevious};
}

}  // namespace

// The strip beside the pages -----------------------------------------------------------------

void CK4CmnDlgFind::MakeControls() {
    FindParts& parts = *m_parts;
    k4cmn::SetWindowContextHelpId(this, kSheet + k4cmn::kDialogHelpBase);
    if (!parts.find) {
        m_standardOk = static_cast<QPushButton*>(GetDlgItem(IDOK));
        const auto make = [this](auto* control, const QString& text, std::uint32_t id) {
            control->setText(text);
            control->setAccessibleName(text);
            control->setFont(m_standardOk->font());
            Identify(control, id);
            control->show();
            return control;
        };
        const int before = height();
        HideStandardButtons(ButtonRow::GiveBack);
        // In the order in which the eye and the Tab key meet them.
        parts.find = make(new QPushButton(this), tr("Find"), kFind);
        parts.cancel = make(new QPushButton(this), tr("Cancel"), IDCANCEL);
        parts.isNew = make(new QRadioButton(this), tr("New"), kNew);
        parts.isPrevious = make(new QRadioButton(this), tr("Previous"), kPrevious);
        parts.count = new QLabel(this);
        parts.count->setFont(m_standardOk->font());
        parts.count->setWordWrap(true);
        parts.count->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        connect(parts.find, &QPushButton::clicked, this, &CK4CmnDlgFind::OnFind);
        connect(parts.cancel, &QPushButton::clicked, this, &CK4CmnDlgFind::OnCancel);
        // The window gives back one button's height, which is less than that of their row.
        m_below = std::max(0, before - height() - m_standardOk->sizeHint().height());
    }
    parts.find->setDefault(true);
    parts.isNew->setChecked(true);
    parts.count->clear();
    SetMargin(ButtonSize().width() + kStripGap, m_below);
    PlaceControls();
}

QSize CK4CmnDlgFind::ButtonSize() const {
    QSize size = m_standardOk->sizeHint();
    for (const QWidget* control : ButtonsOf(*m_parts))
        size = size.expandedTo(control->sizeHint());
    return size;
}

void CK4CmnDlgFind::PlaceControls() {
    const FindParts& parts = *m_parts;
    if (!parts.find)
        return;
    const QSize size = ButtonSize();
    QPoint place(width() - kStripGap - size.width(), size.height() + kAboveButtons);
    for (QWidget* control : ButtonsOf(parts)) {
        control->setGeometry(QRect(place, size));
        place.ry() += size.height() + kBetweenButtons;
    }
    const int lines = kCountLines * parts.count->fontMetrics().lineSpacing();
    parts.count->setGeometry(QRect(place, QSize(size.width(), lines)));
    if (!parts.list)
        return;
    const int top = PagesPlace().bottom() + 1 + m_listGap;
    const int bottom = height() - (kListRoom - kListBelow);
    parts.list->setGeometry(kListLeft, top, width() - kListRight - kListLeft, bottom - top);
}

void CK4CmnDlgFind::resizeEvent(QResizeEvent* event) {
    CPropertySheet::resizeEvent(event);
    PlaceControls();
}

// The list below the pages -------------------------------------------------------------------

void CK4CmnDlgFind::MakeList() {
    FindParts& parts = *m_parts;
    if (parts.list)
        return;
    parts.rows.Clear();
    parts.list = new FoundListWidget(this);
    Identify(parts.list, kResults);
    connect(parts.list, &FoundListWidget::SelectionChanged, this,
            &CK4CmnDlgFind::OnSelectionChanged);
    connect(parts.list, &FoundListWidget::HeadingClicked, this, &CK4CmnDlgFind::OnSortColumn);
    connect(parts.list, &FoundListWidget::DoubleClicked, this, &CK4CmnDlgFind::OnDoubleClick);
    connect(parts.list, &FoundListWidget::Chosen, this, &CK4CmnDlgFind::OnDoubleClick);
    connect(parts.list, &FoundListWidget::MenuRequested, this, &CK4CmnDlgFind::OpenMenu);
    SetUpKeys();
    parts.list->SetRows(&parts.rows);

    m_listGap = height() - kListAbove - (PagesPlace().bottom() + 1);
    KeepPagesHeight(true);
    SetMargin(ButtonSize().width() + kStripGap, m_below + kListRoom);
    PlaceControls();
    parts.list->show();
    StayOnScreen();
}

void CK4CmnDlgFind::RemoveList() {
    FoundListWidget* const list = m_parts->list;
    if (!list)
        return;
    if (m_menu)
        m_menu->close();
    list->SetRows(nullptr);
    list->hide();
    // What leads here may come from the list.
    list->deleteLater();
    m_parts->list.clear();
    KeepPagesHeight(false);
    SetMargin(ButtonSize().width() + kStripGap, m_below);
}

void CK4CmnDlgFind::StayOnScreen() {
    const QRect screenRect = screen()->availableGeometry();
    const int over = frameGeometry().bottom() - screenRect.bottom();
    const int room = frameGeometry().top() - screenRect.top();
    if (over > 0 && room > 0)
        move(x(), y() - std::min(over, room));
}
