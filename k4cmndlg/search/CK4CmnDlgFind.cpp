#include "k4cmndlg/search/CK4CmnDlgFind.h"

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include "k4cmndlg/frame/LibraryStrings.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/search/FindCommand.h"
#include "k4cmndlg/search/FindParts.h"

using k4cmn::FindParts;
using k4cmn::SearchMode;

namespace {

/// The first control of a page that the Tab key goes to; null if there is none.
QWidget* FirstTabStop(const QWidget& page) {
    for (QWidget* control = page.nextInFocusChain(); control && page.isAncestorOf(control);
         control = control->nextInFocusChain()) {
        if ((control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && control->isEnabled())
            return control;
    }
    return nullptr;
}

}  // namespace

// Construction -------------------------------------------------------------------------------

CK4CmnDlgFind::CK4CmnDlgFind(std::uint32_t captionId, QWidget* parent, int)
    : CPropertySheet(captionId, parent), m_parts(std::make_shared<FindParts>(*this)) {
    SetUp();
}

CK4CmnDlgFind::CK4CmnDlgFind(const char* caption, QWidget* parent, int)
    : CPropertySheet(std::string(caption ? caption : ""), parent),
      m_parts(std::make_shared<FindParts>(*this)) {
    SetUp();
}

CK4CmnDlgFind::~CK4CmnDlgFind() {
    CPropertySheet::DestroyWindow();
}

void CK4CmnDlgFind::SetUp() {
    AddPage(&m_parts->name);
    AddPage(&m_parts->sign);
    AddPage(&m_parts->size);
}

// Before it runs, and after ------------------------------------------------------------------

void CK4CmnDlgFind::SetServer(const std::string& server) {
    m_parts->selection.place.server = server;
}

void CK4CmnDlgFind::SetSignType(const std::string& signType) {
    m_parts->selection.place.signType = signType;
}

void CK4CmnDlgFind::SetLibrary(const std::string& library) {
    m_parts->selection.place.library = library;
}

void CK4CmnDlgFind::SetFileType(int type) {
    m_parts->selection.type = type;
}

void CK4CmnDlgFind::SetSearchPath(const std::string& path) {
    m_parts->selection.TakeSearchPath(path);
    m_parts->searchPath = path;
}

const std::string& CK4CmnDlgFind::GetServer() const {
    return m_parts->selection.place.server;
}

const std::string& CK4CmnDlgFind::GetSignType() const {
    return m_parts->selection.place.signType;
}

const std::string& CK4CmnDlgFind::GetLibrary() const {
    return m_parts->selection.place.library;
}

const std::string& CK4CmnDlgFind::GetFileSel() const {
    return m_parts->selection.file;
}

int CK4CmnDlgFind::GetFileType() const {
    return m_parts->selection.type;
}

std::string CK4CmnDlgFind::GetSearchPath() const {
    return k4cmn::SearchPathText(m_parts->selection.place);
}

// Opening and ending -------------------------------------------------------------------------

int CK4CmnDlgFind::DoModal() {
    const k4cmn::ResourceScope ownTexts(k4cmn::LibraryStrings());
    return CPropertySheet::DoModal();
}

int CK4CmnDlgFind::OnInitDialog() {
    CK4CmnDlgFindNam& name = m_parts->name;
    name.m_searchPath = m_parts->searchPath;
    name.m_fileType = m_parts->selection.type;
    name.m_server = m_parts->selection.place.server;
    name.m_signType = m_parts->selection.place.signType;
    name.m_library = m_parts->selection.place.library;

    CPropertySheet::OnInitDialog();
    MakeControls();
    // So that each page exists when a search reads it, and the first one is in front.
    for (int index = GetPageCount() - 1; index >= 0; --index)
        SetActivePage(index);
    if (QWidget* first = FirstTabStop(*GetPage(0)))
        first->setFocus();
    return 0;
}

void CK4CmnDlgFind::OnDestroy() {
    const std::shared_ptr<FindParts> parts = m_parts;
    const QPointer<CK4CmnDlgFind> self(this);
    parts->properties.Close();
    if (!self)
        return;
    RemoveList();
    CPropertySheet::OnDestroy();
}

// Find ---------------------------------------------------------------------------------------

void CK4CmnDlgFind::OnFind() {
    const std::shared_ptr<FindParts> parts = m_parts;
    if (parts->IsSearching())
        return;
    const QPointer<CK4CmnDlgFind> self(this);
    MakeList();
    if (!ReadActivePage() || !self || !HasWindow())
        return;
    parts->Search(parts->isNew->isChecked() ? SearchMode::New : SearchMode::Previous);
}

std::intptr_t CK4CmnDlgFind::OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                             std::intptr_t lParam) {
    switch (message) {
        case k4cmn::WM_COMMAND:
            if (wParam == k4cmn::kFindCommand && HasWindow())
                OnFind();
            return 0;
        case k4cmn::WM_GET_LIST_FILE:
            return m_parts->list && m_parts->list->SelectedRow() ? m_parts->TakeSelection() : 0;
        case k4cmn::WM_PROPERTIES_GONE:
            m_parts->properties.Forget(wParam);
            return 0;
        default:
            return CPropertySheet::OnWindowMessage(message, wParam, lParam);
    }
}

bool CK4CmnDlgFind::IsInPage(const QWidget* control) const {
    for (int index = 0; index < GetPageCount(); ++index) {
        const CPropertyPage* page = GetPage(index);
        if (page == control || page->isAncestorOf(control))
            return true;
    }
    return false;
}

void CK4CmnDlgFind::keyPressEvent(QKeyEvent* event) {
    // A page presses Find by itself, when the key goes down in it; here it would be pressed again.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || !IsInPage(focusWidget()))
        CPropertySheet::keyPressEvent(event);
}
