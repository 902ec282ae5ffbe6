#include "k4cmndlg/frame/CPropertyPage.h"

#include <QKeyEvent>

#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/frame/HelpDecision.h"

CPropertyPage::CPropertyPage(std::uint32_t resourceId) : CDialog(resourceId, nullptr) {
    // Its sheet gives it place and size.
    setAttribute(Qt::WA_Moved);
    setAttribute(Qt::WA_Resized);
}

CPropertyPage::~CPropertyPage() = default;

CPropertySheet* CPropertyPage::GetSheet() const {
    for (QWidget* widget = parentWidget(); widget; widget = widget->parentWidget()) {
        if (auto* sheet = qobject_cast<CPropertySheet*>(widget))
            return sheet;
    }
    return nullptr;
}

bool CPropertyPage::IsActive() const {
    const CPropertySheet* sheet = GetSheet();
    return sheet && sheet->GetActivePage() == this;
}

void CPropertyPage::OnSetActive() {
    UpdateData(false);
}

int CPropertyPage::OnKillActive() {
    return UpdateData(true) ? 1 : 0;
}

int CPropertyPage::OnInitDialog() {
    CDialog::OnInitDialog();
    k4cmn::SetWindowContextHelpId(this, ResourceId() + k4cmn::kDialogHelpBase);
    return 1;
}

void CPropertyPage::OnOK() {
    if (CPropertySheet* sheet = GetSheet())
        sheet->OnOK();
}

void CPropertyPage::OnCancel() {
    if (CPropertySheet* sheet = GetSheet())
        sheet->OnCancel();
}

// The toolkit's dialog places itself, takes the focus and acts on keys when it is shown. A page is
// a part of a window.

void CPropertyPage::setVisible(bool visible) {
    QWidget::setVisible(visible);
}

void CPropertyPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
}

void CPropertyPage::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}
