#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace Ui {
class CreateLibraryDialog;
}

namespace k4cmn {

/// The dialog "Create Library": takes the name of a library, of at most 32 characters. It makes
/// nothing.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CreateLibraryDialog final : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CreateLibraryDialog)

 public:
    /// @param signFolder shown above the field. @param name what the field shows at first.
    CreateLibraryDialog(std::string signFolder, std::string name, QWidget* parent);
    ~CreateLibraryDialog() override;

    /// What was typed, after OK.
    const std::string& Name() const { return m_name; }

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;

 private:
    std::unique_ptr<Ui::CreateLibraryDialog> m_ui;
    std::string m_signFolder;
    std::string m_name;
};

}  // namespace k4cmn
