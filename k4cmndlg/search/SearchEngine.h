#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchCriteria.h"
#include "k4cmndlg/search/SearchDates.h"
#include "k4cmndlg/search/SearchSink.h"
#include "k4cmndlg/search/SearchWords.h"

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
/// opening Sequence: \n" and its path. While that stands, the sink has all that was found before
/// it. Whatever else can't be read contributes nothing, in silence.
///
/// Names and keywords are compared without regard to case, as the whole store does it
/// (WithoutCase()); signs, servers and the other pieces of a path in exact case.
///
/// Used for one search, whose moment is that of the object's making. Ownership: sink and prompt
/// must outlive the object.
class K4CMNCORE_EXPORT SearchEngine {
 public:
    /// @param criteria copied; what counts without case loses it in the copy.
    SearchEngine(SearchCriteria criteria, SearchMode mode, SearchSink& sink, Prompt& prompt);
    ~SearchEngine();
    SearchEngine(const SearchEngine&) = delete;
    SearchEngine& operator=(const SearchEngine&) = delete;

    /// The whole search: empties the sink first in New mode, and goes through all servers of this
    /// system where the criteria's server is "File Servers". Without a list of servers nothing is
    /// searched.
    void Find();

    /// The search of one place, and in New mode of what lies below it: without a sign type of all
    /// sign types of the server, without a library of all libraries of the sign type. In Previous
    /// mode the arguments don't count: the criteria's place does.
    void SearchForFiles(const std::string& server, const std::string& signType,
                        const std::string& library);

    /// Lists the entries of the store that match a pattern; folders whose names begin with "."
    /// don't count.
    /// @param result  replaced if the pattern could be opened, else as it was.
    /// @param folders not 0 for folders, 0 for files.
    /// @return 1 if the pattern could be opened, also when nothing matched; else 0.
    static int FindFiles(std::vector<std::string>& result, const std::string& pattern, int folders);

    /// @name The tests of a file: 1 keeps it, 0 drops it.
    /// @{
    /// Compares whole KB. A relation that isn't known drops every file.
    int CheckSize(FileStatus status) const;
    /// Looks at the time of modification alone; see SearchDates.
    int CheckDate(FileStatus status) const;
    /// Opens the sequence; see SearchWords.
    int CheckKeyWords(const std::string& path);
    /// @}

    /// The rough test by which "Previous" narrows by a name: the pieces of the pattern between '*'
    /// and '?' are looked for in their order, each beginning behind the first character of the
    /// last. A pattern without a piece matches every name.
    /// @param pattern, name of one case.
    static bool MatchesRoughly(std::string_view pattern, std::string_view name);

 private:
    void SearchServer(const std::string& server);
    void SearchSignType(const std::string& server, const std::string& signType);
    void SearchLibrary(const std::string& folder);
    void SearchRows();
    /// Gives the sink what has been found until now.
    void HandOver();

    bool IsInPlace(std::string_view path) const;
    bool IsOfSign(std::string_view path) const;
    bool PassesByPath(std::string_view path) const;
    /// The tests behind those of the path. @return a row without a name, if the file is kept.
    std::optional<FoundFileRow> Tested(const std::string& path, std::optional<FileStatus> status);
    int TypeOf(const std::string& path) const;

    const SearchCriteria m_criteria;
    const SearchMode m_mode;
    SearchSink& m_sink;
    Prompt& m_prompt;
    const std::string m_sign;          ///< where sign search is enabled: what a path must hold
    const std::string m_roughPattern;  ///< the file name without case
    const SearchDates m_dates;
    const SearchWords m_words;
    const std::unique_ptr<CK4SequenceFile> m_sequence;  ///< opens one file behind the other
    std::vector<FoundFileRow> m_found;                  ///< not handed over yet
    bool m_hasAsked = false;
};

}  // namespace k4cmn
