#pragma once

#include <QPointer>
#include <string>

#include "k4cmndlg/filesel/properties/PropertiesLink.h"
#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/frame/DialogPrompt.h"
#include "k4cmndlg/search/CK4CmnDlgFindNam.h"
#include "k4cmndlg/search/CK4CmnDlgFindSign.h"
#include "k4cmndlg/search/CK4CmnDlgFindSize.h"
#include "k4cmndlg/search/FindSelection.h"
#include "k4cmndlg/search/FoundListWidget.h"
#include "k4cmndlg/search/FoundRows.h"
#include "k4cmndlg/search/SearchCriteria.h"
#include "k4cmndlg/search/SearchEngine.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace k4cmn {

/// What the search dialog is made of. The dialog shares it with each of its handlers while that
/// runs: a message may end or delete the dialog, and the handler still comes to its end.
class FindParts final : private Prompt {
 public:
    explicit FindParts(CPropertySheet& sheet);
    ~FindParts() override;
    FindParts(const FindParts&) = delete;
    FindParts& operator=(const FindParts&) = delete;

    CK4CmnDlgFindNam name;
    CK4CmnDlgFindSign sign;
    CK4CmnDlgFindSize size;
    std::string searchPath;  ///< what "Look in:" shows at first
    FindSelection selection;
    FoundRows rows;
    DialogPrompt prompt;
    PropertiesLink properties;

    /// @name The controls beside and below the pages; null when they have gone with their window.
    /// @{
    QPointer<QPushButton> find;
    QPointer<QPushButton> cancel;
    QPointer<QRadioButton> isNew;
    QPointer<QRadioButton> isPrevious;
    QPointer<QLabel> count;
    QPointer<FoundListWidget> list;  ///< null until the first search
    /// @}

    /// Runs a search by what the pages hold. What has been found is shown while a message stands,
    /// and at the end. One at a time.
    void Search(SearchMode mode);
    bool IsSearching() const { return m_isSearching; }
    /// Shows what the rows hold now. @param areNew other files than before: none is selected.
    void ShowRows(bool areNew);
    /// Takes the selected row over. @return as FindSelection::Take().
    int TakeSelection();

 private:
    MessageAnswer Ask(const Message& message) override;
    SearchCriteria Criteria() const;

    QPointer<CPropertySheet> m_sheet;
    bool m_isSearching = false;
    bool m_wasShown = false;  ///< the sheet, when the search began
};

}  // namespace k4cmn
