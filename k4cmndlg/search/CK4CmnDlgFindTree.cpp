#include "k4cmndlg/search/CK4CmnDlgFindTree.h"

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/search/PlaceTree.h"
#include "ui_FindTree.h"

namespace {

constexpr std::uint32_t kTemplate = 115;

}  // namespace

CK4CmnDlgFindTree::CK4CmnDlgFindTree(QWidget* parent)
    : DialogFrame(kTemplate, parent, CK4CmnDlgBase::kHelpOffset, k4cmn::PlaceMemory::Off),
      m_ui(std::make_unique<Ui::FindTreeDialog>()) {
    m_ui->setupUi(this);
    connect(m_ui->Tree1, &k4cmn::PlaceTree::DoubleClicked, this, &CK4CmnDlgFindTree::OnOK);
}

CK4CmnDlgFindTree::~CK4CmnDlgFindTree() = default;

int CK4CmnDlgFindTree::OnInitDialog() {
    DialogFrame::OnInitDialog();
    m_ui->Tree1->Fill();
    m_ui->Tree1->ShowPlace({m_server, m_signType, m_library});
    return 1;
}

void CK4CmnDlgFindTree::OnOK() {
    const k4cmn::SearchPlace place = m_ui->Tree1->SelectedPlace();
    m_server = place.server;
    m_signType = place.signType;
    m_library = place.library;
    EndDialog(IDOK);
}
