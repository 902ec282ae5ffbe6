#include "k4cmndlg/filesel/CreateLibraryDialog.h"

#include <utility>

#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_CreateLibrary.h"

namespace k4cmn {

namespace {

constexpr std::uint32_t kTemplate = 111;
/// How many letters the folder's field shows, so that the dialog isn't as small as its buttons.
constexpr int kLetters = 48;

}  // namespace

CreateLibraryDialog::CreateLibraryDialog(std::string signFolder, std::string name, QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent),
      m_ui(std::make_unique<Ui::CreateLibraryDialog>()),
      m_signFolder(std::move(signFolder)),
      m_name(std::move(name)) {
    m_ui->setupUi(this);
    PutOnGround(m_ui->signFolder);
    m_ui->signFolder->setMinimumWidth(kLetters * fontMetrics().averageCharWidth());
}

CreateLibraryDialog::~CreateLibraryDialog() = default;

int CreateLibraryDialog::OnInitDialog() {
    CK4CmnDlgBase::OnInitDialog();
    m_ui->name->setFocus();
    m_ui->name->selectAll();
    return 0;
}

void CreateLibraryDialog::DoDataExchange(CDataExchange* pDX) {
    CK4CmnDlgBase::DoDataExchange(pDX);
    if (pDX->Loading())
        m_ui->signFolder->setText(ToQt(m_signFolder));
    DDX_Text(pDX, m_ui->name, m_name);
    DDV_MaxChars(pDX, m_name, kMaxFileNameLength);
}

}  // namespace k4cmn
