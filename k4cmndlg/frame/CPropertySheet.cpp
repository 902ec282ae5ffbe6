#include "k4cmndlg/frame/CPropertySheet.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/frame/StringTable.h"
#include "k4cmndlg/frame/Text.h"

namespace {

constexpr QMargins kMargins(7, 7, 7, 4);
constexpr int kAboveRow = 3;
constexpr const char* kControlId = "controlId";

}  // namespace

CPropertySheet::CPropertySheet(std::uint32_t captionId, QWidget* parent, int firstPage)
    : CPropertySheet(k4cmn::LoadString(captionId), parent, firstPage) {}

CPropertySheet::CPropertySheet(const std::string& caption, QWidget* parent, int firstPage)
    : DialogFrame(0, parent, CK4CmnDlgBase::kHelpOffset, k4cmn::PlaceMemory::Off),
      m_column(new QVBoxLayout(this)),
      m_tabs(new QTabWidget(this)),
      m_row(new QWidget(this)),
      m_first(firstPage) {
    setWindowTitle(k4cmn::ToQt(caption));
    m_column->setContentsMargins(kMargins);
    m_column->setSpacing(0);
    m_column->addWidget(m_tabs, 1);
    m_column->addWidget(m_row);
    m_row->hide();
    MakeStandardButtons();
    connect(m_tabs, &QTabWidget::currentChanged, this, &CPropertySheet::OnTabChanged);
    // The tabs themselves see these keys only where no control in a page takes them.
    const auto turnBy = [this](QKeyCombination keys, int step) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, step] { Turn(step); });
    };
    turnBy(Qt::CTRL | Qt::Key_Tab, 1);
    turnBy(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1);
}

CPropertySheet::~CPropertySheet() {
    // Whoever has a page deletes it.
    const QSignalBlocker quiet(m_tabs);
    while (CPropertyPage* page = GetPage(0))
        page->setParent(nullptr);
}

void CPropertySheet::MakeStandardButtons() {
    auto* line = new QHBoxLayout(m_row);
    line->setContentsMargins(0, kAboveRow, 0, 0);
    line->addStretch(1);
    const auto add = [&](const QString& text, int id) {
        auto* button = new QPushButton(text, m_row);
        button->setAccessibleName(text);
        button->setProperty(kControlId, id);
        line->addWidget(button);
        return button;
    };
    add(tr("OK"), IDOK);
    add(tr("Cancel"), IDCANCEL);
    connect(add(tr("Apply"), ID_APPLY_NOW), &QPushButton::clicked, this, &CPropertySheet::OnApply);
    add(tr("Help"), IDHELP);
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    m_tabs->addTab(page, page->windowTitle());
}

int CPropertySheet::GetPageCount() const {
    return m_tabs->count();
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    return qobject_cast<CPropertyPage*>(m_tabs->widget(index));
}

int CPropertySheet::SetActivePage(int index) {
    if (!GetPage(index))
        return 0;
    if (!HasWindow()) {
        m_first = index;
        return 1;
    }
    if (index == m_active)
        return 1;
    const QPointer<CPropertySheet> self(this);
    CPropertyPage* left = GetActivePage();
    if (left && !left->OnKillActive())
        return 0;
    // The page may have asked a person, and the sheet may be gone meanwhile.
    if (!self || !HasWindow())
        return 0;
    Enter(index);
    return 1;
}

void CPropertySheet::Enter(int index) {
    m_active = index;
    ShowTab(index);
    CPropertyPage* page = GetPage(index);
    if (!page)
        return;
    if (!page->HasWindow()) {
        page->Create();
        page->show();
    }
    page->OnSetActive();
}

void CPropertySheet::Turn(int step) {
    const int pages = GetPageCount();
    if (HasWindow() && pages > 0)
        SetActivePage((m_active + pages + step) % pages);
}

void CPropertySheet::ShowTab(int index) {
    const QSignalBlocker quiet(m_tabs);
    m_tabs->setCurrentIndex(index);
}

void CPropertySheet::OnTabChanged(int index) {
    if (!HasWindow())
        return;
    // The page that is left stays in front until it agrees.
    ShowTab(m_active);
    SetActivePage(index);
}

bool CPropertySheet::ReadActivePage() {
    CPropertyPage* page = GetActivePage();
    return !page || page->UpdateData(true);
}

int CPropertySheet::DoModal() {
    if (HasWindow())
        return -1;
    const QPointer<CPropertySheet> self(this);
    m_modal = true;
    ShowRow(m_rowKept);
    const int result = DialogFrame::DoModal();
    if (self) {
        m_modal = false;
        ShowRow(false);
    }
    return result;
}

void CPropertySheet::ShowRow(bool shown) {
    if (m_row->isHidden() != shown)
        return;
    const int wanted = height() + (shown ? RowHeight() : -RowHeight());
    m_row->setVisible(shown);
    // So that the window may become as small as it is to be, which is seen to later otherwise.
    m_column->activate();
    if (testAttribute(Qt::WA_Resized))
        resize(width(), wanted);
}

int CPropertySheet::RowHeight() const {
    // That of a row whose buttons were hidden has been fixed.
    return std::max(m_row->minimumHeight(), m_row->sizeHint().height());
}

int CPropertySheet::OnInitDialog() {
    DialogFrame::OnInitDialog();
    Enter(GetPage(m_first) ? m_first : 0);
    return 1;
}

void CPropertySheet::OnDestroy() {
    for (int index = 0; index < GetPageCount(); ++index)
        GetPage(index)->DestroyWindow();
    m_active = -1;
    DialogFrame::OnDestroy();
}

void CPropertySheet::OnOK() {
    if (ReadActivePage())
        Close(IDOK);
}

void CPropertySheet::OnCancel() {
    Close(IDCANCEL);
}

void CPropertySheet::OnApply() {
    ReadActivePage();
}

void CPropertySheet::Close(int result) {
    if (!HasWindow())
        return;
    if (m_modal)
        EndDialog(result);
    else
        DestroyWindow();
}

void CPropertySheet::HideStandardButtons(ButtonRow row) {
    m_rowKept = row == ButtonRow::Keep;
    m_row->setFixedHeight(RowHeight());
    for (QPushButton* button : m_row->findChildren<QPushButton*>()) {
        button->setEnabled(false);
        button->hide();
        button->setProperty(kControlId, QVariant());
    }
    if (!m_rowKept)
        ShowRow(false);
}

void CPropertySheet::SetMargin(int right, int bottom) {
    const QMargins wanted = kMargins + QMargins(0, 0, right, bottom);
    const QMargins change = wanted - m_column->contentsMargins();
    const QSize size(width() + change.right(), height() + change.bottom());
    m_column->setContentsMargins(wanted);
    m_column->activate();
    resize(size);
}

QRect CPropertySheet::PagesPlace() const {
    return m_tabs->geometry();
}

void CPropertySheet::KeepPagesHeight(bool kept) {
    if (kept && !m_below) {
        m_below = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding);
        m_column->addItem(m_below);
    }
    m_tabs->setMaximumHeight(kept ? m_tabs->height() : QWIDGETSIZE_MAX);
    m_column->activate();
}
