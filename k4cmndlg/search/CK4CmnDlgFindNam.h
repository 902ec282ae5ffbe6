#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/search/SearchPlace.h"

namespace Ui {
class FindNamePage;
}

/// The page "Name" of the search dialog: names, keywords, the type of the files, and the place to
/// search, which the button "..." picks.
///
/// The fields are the page's data: its sheet writes the place, the type and the path before the
/// page has a window, and reads all of them when a search begins. UpdateData() moves them.
/// Enter anywhere in the page also presses the sheet's Find button.
/// Ownership: the sheet's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFindNam final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFindNam)

 public:
    static constexpr int kKeywordsLimit = 255;  ///< characters

    Q_INVOKABLE CK4CmnDlgFindNam();
    ~CK4CmnDlgFindNam() override;

    /// @name The place; no control shows these.
    /// @{
    std::string m_server;
    std::string m_signType;
    std::string m_library;
    /// @}
    std::string m_keywords;  ///< at most kKeywordsLimit characters
    std::string m_fileName;
    int m_fileType = 0;            ///< index in kSearchTypeNames
    std::string m_searchPath;      ///< what "Look in:" shows
    int m_keywordCombination = 0;  ///< a KeywordCombination

 protected:
    void DoDataExchange(CDataExchange* pDX) override;

 private:
    void OnSelchangeFileType();
    void OnBrowse();
    void TakePlace(const k4cmn::SearchPlace& place);

    std::unique_ptr<Ui::FindNamePage> m_ui;
};
