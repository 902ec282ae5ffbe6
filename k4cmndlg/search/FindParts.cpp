#include "k4cmndlg/search/FindParts.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WaitCursor.h"

namespace k4cmn {

FindParts::FindParts(CPropertySheet& sheet) : prompt(sheet), properties(sheet), m_sheet(&sheet) {}

FindParts::~FindParts() = default;

// Searching ----------------------------------------------------------------------------------

void FindParts::Search(SearchMode mode) {
    m_isSearching = true;
    m_wasShown = m_sheet && m_sheet->isVisible();
    {
        const WaitCursor wait;
        SearchEngine(Criteria(), mode, rows, *this).Find();
        ShowRows(true);
    }
    m_isSearching = false;
}

MessageAnswer FindParts::Ask(const Message& message) {
    // A search whose window has gone comes to its end in silence.
    if (!m_sheet || (m_wasShown && !m_sheet->isVisible()))
        return CautiousAnswer(message.buttons);
    ShowRows(true);
    return prompt.Ask(message);
}

SearchCriteria FindParts::Criteria() const {
    SearchCriteria criteria;
    criteria.fileName = name.m_fileName;
    criteria.keywords = name.m_keywords;
    criteria.keywordCombination = name.m_keywordCombination;
    criteria.fileType = name.m_fileType;
    criteria.place = {name.m_server, name.m_signType, name.m_library};

    criteria.isSignSearchEnabled = sign.m_enabled;
    criteria.rows = sign.m_rows;
    criteria.columns = sign.m_columns;
    criteria.color = sign.m_color;
    criteria.pixel = sign.m_pixel;

    criteria.sizeRelation = size.m_sizeRelation;
    criteria.size = size.m_size;
    criteria.dateFilter = size.m_dateFilter;
    criteria.dateMode = size.m_dateMode;
    criteria.days = size.m_days;
    criteria.months = size.m_months;
    criteria.firstDate = size.m_firstDate;
    criteria.lastDate = size.m_lastDate;
    return criteria;
}

// The list -----------------------------------------------------------------------------------

void FindParts::ShowRows(bool areNew) {
    if (!list)
        return;
    // Only rows that are new to the list end its selection where there are as many as before.
    if (areNew) {
        list->SetRows(nullptr);
        list->SetRows(&rows);
    }
    list->RowsChanged();
    const QString text = ToQt(FoundCountText(rows.Count()));
    count->setText(text);
    // Of what has the focus, which is read out.
    list->focusProxy()->setAccessibleDescription(text);
}

int FindParts::TakeSelection() {
    const auto row = list ? list->SelectedRow() : std::nullopt;
    return selection.Take(row ? rows.Row(*row).path : std::string());
}

}  // namespace k4cmn
