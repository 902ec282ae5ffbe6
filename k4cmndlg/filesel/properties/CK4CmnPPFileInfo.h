#pragma once

#include <memory>

#include "k4cmndlg/frame/CPropertyPage.h"

namespace Ui {
class FileInfoPage;
}

/// The page "General" of the properties of a sequence: facts that can only be read. A page of
/// CK4CmnPSProperties and of no other sheet.
class CK4CmnPPFileInfo final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnPPFileInfo)

 public:
    CK4CmnPPFileInfo();
    ~CK4CmnPPFileInfo() override;

    /// Shows the sheet's record.
    void Fill();

 protected:
    void OnSetActive() override;

 private:
    std::unique_ptr<Ui::FileInfoPage> m_ui;
};
