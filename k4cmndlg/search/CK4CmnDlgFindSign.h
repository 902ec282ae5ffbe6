#pragma once

#include <cstdint>
#include <memory>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace Ui {
class FindSignPage;
}

/// The page "Sign" of the search dialog: confines a search to the files of one sign type, given by
/// its size and technologies.
///
/// The fields are the page's data, which the sheet reads when a search begins; whether they count
/// is `m_enabled`. They are checked whenever the page is read, also while they don't count.
/// Enter anywhere in the page also presses the sheet's Find button.
/// Ownership: the sheet's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFindSign final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFindSign)

 public:
    Q_INVOKABLE CK4CmnDlgFindSign();
    ~CK4CmnDlgFindSign() override;

    int m_enabled = 0;
    std::uint32_t m_rows = 7;      ///< 7 to 2048
    std::uint32_t m_columns = 16;  ///< 16 to 16384
    int m_colorIndex = 0;
    int m_pixelIndex = 0;
    /// @name What the two indices stand for, once the page was read.
    /// @{
    tag_K4_SIGN_COLOR m_color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH m_pixel = K4_PIXEL_TECH_INCAND;
    /// @}

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void EnableControls();
    void OnEnable();
    void CheckSign(CDataExchange* pDX);

    std::unique_ptr<Ui::FindSignPage> m_ui;
};
