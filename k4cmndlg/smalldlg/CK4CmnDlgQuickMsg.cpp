#include "k4cmndlg/smalldlg/CK4CmnDlgQuickMsg.h"

#include "k4cmndlg/frame/FieldLooks.h"
#include "ui_QuickMessage.h"

namespace {

constexpr std::uint32_t kTemplate = 117;

}  // namespace

CK4CmnDlgQuickMsg::CK4CmnDlgQuickMsg(QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent), m_ui(std::make_unique<Ui::QuickMessageDialog>()) {
    m_ui->setupUi(this);
    // A name that isn't in the list stays as it is typed.
    m_ui->font->setCompleter(nullptr);
    for (QLineEdit* number : {m_ui->rows, m_ui->columns}) {
        k4cmn::TakeDigitsAlone(number);
        k4cmn::FitToText(number, QStringLiteral("0000000"));
    }
}

CK4CmnDlgQuickMsg::~CK4CmnDlgQuickMsg() = default;
