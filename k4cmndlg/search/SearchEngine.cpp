#include "k4cmndlg/search/SearchEngine.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/PathParts.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

constexpr std::uint64_t kBytesOfAKilobyte = 1024;
constexpr int kNoPalette = 0;

using Statuses = std::vector<std::optional<FileStatus>>;

std::string SignText(const SearchCriteria& criteria) {
    if (!criteria.isSignSearchEnabled)
        return {};
    return CK4Files().BuildSign(criteria.rows, criteria.columns, criteria.color, criteria.pixel,
                                kNoPalette);
}

bool Holds(std::string_view text, std::string_view piece) {
    return text.find(piece) != std::string_view::npos;
}

std::size_t FolderEnd(std::string_view path) {
    return path.find_last_of("\\/") + 1;
}

/// As many as there are names.
Statuses StatusIn(const std::string& folder, const std::vector<std::string>& names) {
    Statuses all = Provided<StoreAccess>::Current().StatusIn(folder, names);
    all.resize(names.size());
    return all;
}

/// The status of each path. Each folder is looked into once, in whatever order the paths are.
Statuses StatusOf(const std::vector<std::string>& paths) {
    std::unordered_map<std::string_view, std::vector<std::size_t>> folders;
    for (std::size_t i = 0; i < paths.size(); ++i)
        folders[std::string_view(paths[i]).substr(0, FolderEnd(paths[i]))].push_back(i);
    Statuses all(paths.size());
    for (const auto& [folder, members] : folders) {
        std::vector<std::string> names;
        names.reserve(members.size());
        for (const std::size_t i : members)
            names.push_back(paths[i].substr(folder.size()));
        const Statuses found = StatusIn(std::string(folder), names);
        for (std::size_t i = 0; i < members.size(); ++i)
            all[members[i]] = found[i];
    }
    return all;
}

std::optional<FileStatus> StatusNow(const std::string& path) {
    FileStatus status;
    if (!Provided<StoreAccess>::Current().GetStatus(path, &status))
        return std::nullopt;
    return status;
}

}  // namespace

SearchEngine::SearchEngine(SearchCriteria criteria, SearchMode mode, SearchSink& sink,
                           Prompt& prompt)
    : m_criteria(std::move(criteria)),
      m_mode(mode),
      m_sink(sink),
      m_prompt(prompt),
      m_sign(SignText(m_criteria)),
      m_roughPattern(WithoutCase(m_criteria.fileName)),
      m_dates(m_criteria, SecondsNow()),
      m_words(m_criteria.keywords, m_criteria.keywordCombination),
      m_sequence(Provided<SequenceLibrary>::Current().Create()) {}

SearchEngine::~SearchEngine() = default;

void SearchEngine::Find() {
    if (m_mode == SearchMode::New)
        m_sink.Clear();
    const SearchPlace& place = m_criteria.place;
    if (place.server != kFileServers) {
        SearchForFiles(place.server, place.signType, place.library);
        return;
    }
    std::vector<std::string> servers;
    if (!CK4Registry::GetRegistryServers(servers))
        return;
    for (const std::string& server : servers)
        SearchForFiles(server, place.signType, place.library);
}

void SearchEngine::SearchForFiles(const std::string& server, const std::string& signType,
                                  const std::string& library) {
    if (m_mode == SearchMode::Previous)
        SearchRows();
    else if (server.empty())
        return;
    else if (signType.empty())
        SearchServer(server);
    else if (library.empty())
        SearchSignType(server, signType);
    else
        SearchLibrary(LibraryFolder(server, signType, library));
    HandOver();
}

void SearchEngine::HandOver() {
    if (!m_found.empty())
        m_sink.Add(std::exchange(m_found, {}));
}

void SearchEngine::SearchServer(const std::string& server) {
    for (const std::string& signType :
         FolderNames(ServerFolder(server) + "*.*.*.Sign", kSignEnding)) {
        if (!m_criteria.isSignSearchEnabled || signType == m_sign)
            SearchSignType(server, signType);
    }
}

void SearchEngine::SearchSignType(const std::string& server, const std::string& signType) {
    for (const std::string& library :
         FolderNames(SignTypeFolder(server, signType) + "*.Lib", kLibraryEnding))
        SearchLibrary(LibraryFolder(server, signType, library));
}

int SearchEngine::FindFiles(std::vector<std::string>& result, const std::string& pattern,
                            int folders) {
    std::vector<std::string> names;
    if (!CK4Files::FindFiles(names, pattern, folders))
        return 0;
    std::erase_if(names, [&](const std::string& name) { return !IsFileValid(name, folders); });
    result = std::move(names);
    return 1;
}

void SearchEngine::SearchLibrary(const std::string& folder) {
    const std::string_view extension = SearchExtension(m_criteria.fileType);
    if (m_criteria.fileName.empty() && extension.empty())
        return;
    const std::string pattern =
        m_criteria.fileName.empty() ? "*." + std::string(extension) : m_criteria.fileName;
    std::vector<std::string> names;
    FindFiles(names, folder + pattern, 0);
    if (!IsOfSign(folder))
        std::erase_if(names, [&](const std::string& name) { return !IsOfSign(folder + name); });
    const Statuses all = StatusIn(folder, names);
    std::string path;
    for (std::size_t i = 0; i < names.size(); ++i) {
        path.assign(folder).append(names[i]);
        if (std::optional<FoundFileRow> row = Tested(path, all[i])) {
            // By its length, whatever the name ends in.
            row->name = WithoutLastCharacters(names[i], extension.size() + 1);
            m_found.push_back(std::move(*row));
        }
    }
}

void SearchEngine::SearchRows() {
    std::vector<std::string> paths = m_sink.Paths();
    std::erase_if(paths, [&](const std::string& path) { return !IsInPlace(path); });
    m_sink.Clear();
    std::erase_if(paths, [&](const std::string& path) { return !PassesByPath(path); });
    const Statuses all = StatusOf(paths);
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (std::optional<FoundFileRow> row = Tested(paths[i], all[i])) {
            row->name = SplitPath(paths[i]).name;
            m_found.push_back(std::move(*row));
        }
    }
}

std::optional<FoundFileRow> SearchEngine::Tested(const std::string& path,
                                                 std::optional<FileStatus> status) {
    // Time went by while somebody read the message.
    if (m_hasAsked)
        status = StatusNow(path);
    if (!status || !CheckSize(*status) || !CheckDate(*status))
        return std::nullopt;
    const int type = TypeOf(path);
    if (type == kSequenceSearchType && !m_criteria.keywords.empty() && !CheckKeyWords(path))
        return std::nullopt;
    return FoundFileRow{{}, path, status->size, status->modified, type};
}

int SearchEngine::TypeOf(const std::string& path) const {
    const bool isGiven = m_mode == SearchMode::New && m_criteria.fileName.empty();
    return isGiven ? m_criteria.fileType : GetFileType(path);
}

bool SearchEngine::IsInPlace(std::string_view path) const {
    const SearchPlace& place = m_criteria.place;
    return place.server == kFileServers ||
           (Holds(path, place.server) && Holds(path, place.signType) && Holds(path, place.library));
}

bool SearchEngine::IsOfSign(std::string_view path) const {
    return !m_criteria.isSignSearchEnabled || Holds(path, m_sign);
}

bool SearchEngine::PassesByPath(std::string_view path) const {
    if (!IsOfSign(path))
        return false;
    if (m_criteria.fileName.empty())
        return GetFileType(path) == m_criteria.fileType;
    return MatchesRoughly(m_roughPattern, WithoutCase(path.substr(FolderEnd(path))));
}

int SearchEngine::CheckSize(FileStatus status) const {
    const auto kilobytes = static_cast<std::int64_t>(status.size / kBytesOfAKilobyte);
    switch (m_criteria.sizeRelation) {
        case SIZE_ANY:
            return 1;
        case SIZE_AT_LEAST:
            return m_criteria.size <= kilobytes;
        case SIZE_AT_MOST:
            return m_criteria.size >= kilobytes;
        default:
            return 0;
    }
}

int SearchEngine::CheckDate(FileStatus status) const {
    return m_dates.Passes(status.modified);
}

int SearchEngine::CheckKeyWords(const std::string& path) {
    if (!m_sequence->Open(path, K4_OPEN_READ)) {
        HandOver();
        m_hasAsked = true;
        m_prompt.Ask(
            {"Error opening Sequence: \n" + path, {}, MessageButtons::Ok, MessageIcon::Stop});
        return 0;
    }
    const std::string keywords = m_sequence->GetPtrToKeywords();
    m_sequence->Close();
    return m_words.Match(keywords);
}

bool SearchEngine::MatchesRoughly(std::string_view pattern, std::string_view name) {
    constexpr std::string_view wildcards = "*?";
    std::size_t begin = pattern.find_first_not_of(wildcards);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(pattern.find_first_of(wildcards, begin), pattern.size());
        const std::size_t hit = name.find(pattern.substr(begin, end - begin));
        if (hit == std::string_view::npos)
            return false;
        name.remove_prefix(hit + FirstCharacters(name.substr(hit), 1).size());
        begin = pattern.find_first_not_of(wildcards, end);
    }
    return true;
}

}  // namespace k4cmn
