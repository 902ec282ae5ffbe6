#pragma once

#include <memory>

#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/search/SearchCriteria.h"

class QLineEdit;

namespace Ui {
class FindSizePage;
}

/// The page "Size" of the search dialog: confines a search by the size of a file, and by the time
/// of its last change.
///
/// The fields are the page's data, which the sheet reads when a search begins. The two dates are
/// picked in CK4CmnDlgDate: a change of text in their edits opens it, and the dates that were
/// picked are what counts, whatever the edits show.
/// Enter anywhere in the page also presses the sheet's Find button.
/// Ownership: the sheet's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFindSize final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFindSize)

 public:
    Q_INVOKABLE CK4CmnDlgFindSize();
    ~CK4CmnDlgFindSize() override;

    int m_sizeRelation = 0;  ///< a k4cmn::SizeRelation
    int m_size = 0;          ///< whole KB
    int m_dateFilter = 0;    ///< a k4cmn::DateFilter
    int m_dateMode = 0;      ///< a k4cmn::DateMode
    int m_days = 1;          ///< 1 to 999
    int m_months = 1;        ///< 1 to 999
    /// @name The dates; set when the page is initialised.
    /// @{
    k4cmn::CalendarDay m_firstDate;
    k4cmn::CalendarDay m_lastDate;
    /// @}

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;

 private:
    /// One of the two dates: its edit, and whether the next change of its text is passed over.
    struct Date {
        k4cmn::CalendarDay CK4CmnDlgFindSize::*day;
        QLineEdit* edit = nullptr;
        int guard = 0;           ///< 0: the next change is passed over; 1: it opens the calendar
        bool isTelling = false;  ///< of a change, which has the calendar open
    };

    void EnableControls();
    void OnDateMode();
    void ShowDate(Date& date);
    void OnChangeDate(Date& date);
    void PickDate(Date& date);

    std::unique_ptr<Ui::FindSizePage> m_ui;
    Date m_first{&CK4CmnDlgFindSize::m_firstDate};
    Date m_last{&CK4CmnDlgFindSize::m_lastDate};
};
