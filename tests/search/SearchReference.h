#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/search/SearchCriteria.h"
#include "k4cmndlg/search/SearchSink.h"

namespace k4test {

/// What is known of a store before anybody searches it.
struct ReferenceStore {
    std::function<std::string(const std::string&)> native;  ///< where a path of the store lies
    std::optional<std::vector<std::string>> servers;        ///< nothing if they can't be read
    /// The keywords of the sequences that can be opened, by native path.
    std::map<std::string, std::string> keywords;
    std::int64_t now = 0;
};

/// The search once more: slow, obvious, over the folders themselves. It knows what the sequences
/// hold, and opens none.
class SearchReference {
 public:
    SearchReference(const ReferenceStore& store, k4cmn::SearchCriteria criteria);

    /// The search as the button "Find" runs it.
    void FindNew();
    /// @param listed the rows that the last search left.
    void FindPrevious(const std::vector<k4cmn::FoundFileRow>& listed);

    /// One call of the engine in each mode.
    void SearchNew(const std::string& server, const std::string& signType,
                   const std::string& library);
    void SearchPrevious(const std::vector<k4cmn::FoundFileRow>& listed);

    const std::vector<k4cmn::FoundFileRow>& Rows() const { return m_rows; }
    /// The texts of the messages, in their order.
    const std::vector<std::string>& Messages() const { return m_messages; }

 private:
    std::vector<std::string> Names(const std::string& folder, const std::string& pattern,
                                   bool wantFolders) const;
    bool IsKeptPath(const std::string& path) const;
    /// The tests of one candidate, and its row.
    void Test(const std::string& shown, const std::string& path, int type);
    bool HasSize(std::uint64_t bytes) const;
    bool HasDate(std::int64_t modified) const;
    bool IsBetween(std::int64_t modified) const;
    int ElapsedMonths(std::int64_t modified) const;
    bool HasKeywords(const std::string& path);

    const ReferenceStore& m_store;
    const k4cmn::SearchCriteria m_criteria;
    std::vector<k4cmn::FoundFileRow> m_rows;
    std::vector<std::string> m_messages;
};

}  // namespace k4test
