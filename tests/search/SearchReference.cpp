#include "tests/search/SearchReference.h"

#include <dirent.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <utility>

#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "tests/search/PlainText.h"

namespace k4test {

namespace {

constexpr std::array<const char*, 4> kExtensions{"SQ4", "SD4", "SC4", "SEQ"};

std::string LastName(const std::string& path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

int TypeOf(const std::string& path) {
    const std::string name = LastName(path);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos)
        return -1;
    const std::string extension = InUpperCase(name.substr(dot + 1));
    for (int type = 0; type < 4; ++type) {
        if (extension == kExtensions[static_cast<std::size_t>(type)])
            return type;
    }
    return -1;
}

/// A name less its last characters, as many as ".SQ4" has.
std::string WithoutLastFour(const std::string& name) {
    std::vector<std::string> characters;
    Characters(name, characters);
    std::string shown;
    for (std::size_t i = 0; i + 4 < characters.size(); ++i)
        shown += characters[i];
    return shown;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::tm Local(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}

std::string SignText(const k4cmn::SearchCriteria& wanted) {
    return CK4Files().BuildSign(wanted.rows, wanted.columns, wanted.color, wanted.pixel, 0);
}

/// The filter by which "Previous" looks at names.
bool IsRoughlyLike(const std::string& pattern, const std::string& name) {
    std::string rest = InUpperCase(name);
    std::string piece;
    for (const char byte : InUpperCase(pattern) + "*") {
        if (byte != '*' && byte != '?') {
            piece += byte;
            continue;
        }
        if (piece.empty())
            continue;
        const std::size_t hit = rest.find(piece);
        if (hit == std::string::npos)
            return false;
        rest = rest.substr(hit + 1);
        piece.clear();
    }
    return true;
}

}  // namespace

SearchReference::SearchReference(const ReferenceStore& store, k4cmn::SearchCriteria criteria)
    : m_store(store), m_criteria(std::move(criteria)) {}

void SearchReference::FindNew() {
    const k4cmn::SearchPlace& place = m_criteria.place;
    if (place.server != "File Servers") {
        SearchNew(place.server, place.signType, place.library);
    } else if (m_store.servers) {
        for (const std::string& server : *m_store.servers)
            SearchNew(server, place.signType, place.library);
    }
}

void SearchReference::FindPrevious(const std::vector<k4cmn::FoundFileRow>& listed) {
    m_rows = listed;
    if (m_criteria.place.server != "File Servers") {
        SearchPrevious(listed);
    } else if (m_store.servers) {
        for (std::size_t i = 0; i < m_store.servers->size(); ++i)
            SearchPrevious(std::vector(m_rows));
    }
}

void SearchReference::SearchNew(const std::string& server, const std::string& signType,
                                const std::string& library) {
    if (server.empty())
        return;
    if (signType.empty()) {
        for (const std::string& folder : Names(server + "\\", "*.*.*.Sign", true)) {
            const std::string type = folder.substr(0, folder.size() - 5);
            if (!m_criteria.isSignSearchEnabled || type == SignText(m_criteria))
                SearchNew(server, type, "");
        }
        return;
    }
    if (library.empty()) {
        for (const std::string& folder : Names(server + "\\" + signType + ".Sign\\", "*.Lib", true))
            SearchNew(server, signType, folder.substr(0, folder.size() - 4));
        return;
    }
    const std::string folder = server + "\\" + signType + ".Sign\\" + library + ".Lib\\";
    const bool hasPattern = !m_criteria.fileName.empty();
    const std::string chosen = kExtensions[static_cast<std::size_t>(m_criteria.fileType)];
    for (const std::string& name :
         Names(folder, hasPattern ? m_criteria.fileName : "*." + chosen, false))
        Test(WithoutLastFour(name), folder + name, hasPattern ? TypeOf(name) : m_criteria.fileType);
}

void SearchReference::SearchPrevious(const std::vector<k4cmn::FoundFileRow>& listed) {
    m_rows.clear();
    for (const k4cmn::FoundFileRow& row : listed) {
        const int type = TypeOf(row.path);
        const std::string name = LastName(row.path);
        if (!IsKeptPath(row.path))
            continue;
        if (m_criteria.fileName.empty() ? type == m_criteria.fileType
                                        : IsRoughlyLike(m_criteria.fileName, name))
            Test(WithoutExtension(name), row.path, type);
    }
}

bool SearchReference::IsKeptPath(const std::string& path) const {
    const k4cmn::SearchPlace& place = m_criteria.place;
    return place.server == "File Servers" ||
           (Contains(path, place.server) && Contains(path, place.signType) &&
            Contains(path, place.library));
}

std::vector<std::string> SearchReference::Names(const std::string& folder,
                                                const std::string& pattern,
                                                bool wantFolders) const {
    // A pattern may bring folders of its own.
    const std::string inside = pattern.substr(0, pattern.find_last_of("\\/") + 1);
    const std::string native = m_store.native(folder + inside);
    std::vector<std::string> names;
    DIR* entries = native.empty() ? nullptr : opendir(native.c_str());
    while (const dirent* entry = entries ? readdir(entries) : nullptr) {
        const std::string name = entry->d_name;
        // The store has no names for copies that aren't finished.
        if (name == "." || name == ".." || name.starts_with(".k4copy-") ||
            (wantFolders && name.front() == '.') || !MatchesPattern(LastName(pattern), name))
            continue;
        struct stat status {};
        if (stat((native + "/" + name).c_str(), &status) == 0 &&
            S_ISDIR(status.st_mode) == wantFolders)
            names.push_back(name);
    }
    if (entries)
        closedir(entries);
    return names;
}

void SearchReference::Test(const std::string& shown, const std::string& path, int type) {
    if (m_criteria.isSignSearchEnabled && !Contains(path, SignText(m_criteria)))
        return;
    const std::string native = m_store.native(path);
    struct stat status {};
    if (native.empty() || stat(native.c_str(), &status) != 0)
        return;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (!HasSize(size) || !HasDate(status.st_mtime))
        return;
    if (type == 0 && !m_criteria.keywords.empty() && !HasKeywords(path))
        return;
    m_rows.push_back({shown, path, size, status.st_mtime, type});
}

bool SearchReference::HasSize(std::uint64_t bytes) const {
    const auto kilobytes = static_cast<std::int64_t>(bytes / 1024);
    if (m_criteria.sizeRelation == 0)
        return true;
    if (m_criteria.sizeRelation == 1)
        return m_criteria.size <= kilobytes;
    if (m_criteria.sizeRelation == 2)
        return m_criteria.size >= kilobytes;
    return false;
}

bool SearchReference::HasDate(std::int64_t modified) const {
    if (m_criteria.dateFilter == 0)
        return true;
    if (m_criteria.dateMode == 0)
        return IsBetween(modified);
    if (m_criteria.dateMode == 1)
        return ElapsedMonths(modified) <= m_criteria.months;
    if (m_criteria.dateMode == 2)
        return (m_store.now - modified) / 86400 <= m_criteria.days;
    return true;
}

bool SearchReference::IsBetween(std::int64_t modified) const {
    const std::tm file = Local(modified);
    const std::array<int, 3> day{file.tm_year + 1900, file.tm_mon + 1, file.tm_mday};
    const k4cmn::CalendarDay& first = m_criteria.firstDate;
    const k4cmn::CalendarDay& last = m_criteria.lastDate;
    return day >= std::array<int, 3>{first.year, first.month, first.day} &&
           day <= std::array<int, 3>{last.year, last.month, last.day};
}

int SearchReference::ElapsedMonths(std::int64_t modified) const {
    const std::tm now = Local(m_store.now);
    const std::tm file = Local(modified);
    int elapsed = 0;
    if (now.tm_year == file.tm_year)
        elapsed = now.tm_mon - file.tm_mon;
    else if (now.tm_year - 1 == file.tm_year)
        elapsed = now.tm_mon - file.tm_mon + 12;
    else if (now.tm_year > file.tm_year)
        elapsed = (now.tm_year - file.tm_year) * 12 - file.tm_mon + now.tm_mon;
    if (elapsed > 0 && now.tm_mday > file.tm_mday)
        ++elapsed;
    return elapsed;
}

bool SearchReference::HasKeywords(const std::string& path) {
    char real[PATH_MAX];
    const bool exists = realpath(m_store.native(path).c_str(), real) != nullptr;
    const auto sequence = exists ? m_store.keywords.find(real) : m_store.keywords.end();
    if (sequence == m_store.keywords.end()) {
        m_messages.push_back("Error opening Sequence: \n" + path);
        return false;
    }
    const std::vector<std::string> words = Tokens(InUpperCase(sequence->second));
    const std::vector<std::string> wanted = Tokens(InUpperCase(m_criteria.keywords));
    const auto isThere = [&](const std::string& word) {
        return std::find(words.begin(), words.end(), word) != words.end();
    };
    if (wanted.empty())
        return false;
    if (m_criteria.keywordCombination == k4cmn::KEYWORDS_OR)
        return std::any_of(wanted.begin(), wanted.end(), isThere);
    return std::all_of(wanted.begin(), wanted.end(), isThere);
}

}  // namespace k4test
