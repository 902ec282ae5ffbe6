#include "k4cmndlg/search/CK4CmnDlgFindNam.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/CK4CmnDlgFindTree.h"
#include "k4cmndlg/search/EnterFinds.h"
#include "k4cmndlg/search/SearchTypes.h"
#include "ui_FindNamePage.h"

namespace {

constexpr std::uint32_t kTemplate = 112;

}  // namespace

CK4CmnDlgFindNam::CK4CmnDlgFindNam()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::FindNamePage>()) {
    m_ui->setupUi(this);
    for (const char* name : k4cmn::kSearchTypeNames)
        m_ui->fileType->addItem(QLatin1String(name));
    connect(m_ui->fileType, &QComboBox::currentIndexChanged, this,
            &CK4CmnDlgFindNam::OnSelchangeFileType);
    connect(m_ui->browse, &QPushButton::clicked, this, &CK4CmnDlgFindNam::OnBrowse);
    new k4cmn::EnterFinds(*this);  // the page's
}

CK4CmnDlgFindNam::~CK4CmnDlgFindNam() = default;

void CK4CmnDlgFindNam::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
    DDX_Text(pDX, m_ui->keywords, m_keywords);
    DDV_MaxChars(pDX, m_keywords, kKeywordsLimit);
    // The window may have gone with the message.
    if (!pDX->Ok())
        return;
    DDX_Text(pDX, m_ui->fileName, m_fileName);
    DDX_CBIndex(pDX, m_ui->fileType, m_fileType);
    DDX_Radio(pDX, {m_ui->combineAnd, m_ui->combineOr}, m_keywordCombination);
    // The path can't be typed: the member is what counts.
    if (pDX->Loading())
        m_ui->searchPath->SetPath(k4cmn::ToQt(m_searchPath));
}

void CK4CmnDlgFindNam::OnSelchangeFileType() {
    m_ui->fileName->clear();
}

void CK4CmnDlgFindNam::OnBrowse() {
    // Not on the stack: a window that goes takes its dialogs along.
    const QPointer<CK4CmnDlgFindTree> tree = new CK4CmnDlgFindTree(this);
    tree->m_server = m_server;
    tree->m_signType = m_signType;
    tree->m_library = m_library;
    if (tree->DoModal() == IDOK && tree)
        TakePlace({tree->m_server, tree->m_signType, tree->m_library});
    delete tree.data();
}

void CK4CmnDlgFindNam::TakePlace(const k4cmn::SearchPlace& place) {
    m_server = place.server;
    m_signType = place.signType;
    m_library = place.library;
    m_searchPath = k4cmn::SearchPathText(place);
    m_ui->searchPath->SetPath(k4cmn::ToQt(m_searchPath));
}
