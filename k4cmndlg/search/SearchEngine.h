#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchCriteria.h"
#include "k4cmndlg/search/SearchSink.h"

namespace k4cmn {

/// Where a search looks for files.
enum class SearchMode : std::uint8_t {
    New,       ///< in the folders of the store
    Previous,  ///< among the rows that the last search left
};

/// The search for files of the store. Each search walks the folders again: there is no index. It
/// runs to its end on the calling thread.
///
/// Files are looked for in library folders alone. Tests that cost little come first; a sequence is
/// opened last, for its keywords, and one that can't be opened is told of by the message "Error
/// opening Sequence: \n" and its path. Whatever else can't be read contributes nothing, in silence.
///
/// Used for one search. Ownership: sink and prompt must outlive the object.
class K4CMNCORE_EXPORT SearchEngine {
 public:
    /// @param criteria copied; texts that are compared without regard to case are made upper case
    /// in
    ///        the copy.
    SearchEngine(SearchCriteria criteria, SearchMode mode, SearchSink& sink, Prompt& prompt);

    /// The whole search: empties the sink first in New mode, and goes through all servers of this
    /// system where the criteria's server is "File Servers". Without a list of servers nothing is
    /// searched.
    void Find();

    /// The search of one place, and in New mode of what lies below it. In Previous mode the
    /// arguments don't count: the criteria's place does.
    void SearchForFiles(const std::string& server, const std::string& signType,
                        const std::string& library);

    /// @name The tests of a file: 1 keeps it, 0 drops it.
    /// @{
    int CheckSize(FileStatus status) const;
    /// Looks at the time of modification alone.
    int CheckDate(FileStatus status) const;
    /// Opens the sequence.
    int CheckKeyWords(const std::string& path);
    /// @}

    /// The rough test by which "Previous" narrows by a name: the pieces of the pattern between '*'
    /// and '?' are looked for in their order, each beginning behind the beginning of the last.
    /// @param pattern, name in upper case.
    static bool MatchesRoughly(std::string_view pattern, std::string_view name);
};

}  // namespace k4cmn
