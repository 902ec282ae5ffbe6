#include "k4cmndlg/filesel/FolderRows.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/FileKinds.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

constexpr std::string_view kEveryFile = "*";

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& byte : upper) {
        if (byte >= 'a' && byte <= 'z')
            byte = static_cast<char>(byte - 'a' + 'A');
    }
    return upper;
}

std::string TypeText(const std::string& path, std::string_view name) {
    const std::string known = Provided<FileKinds>::Current().TypeName(path);
    if (!known.empty())
        return known;
    const std::string extension = UpperCase(FolderRows::ExtensionOf(name));
    return extension.empty() ? "File" : Format("%s File", extension.c_str());
}

std::string ModifiedText(std::int64_t modified) {
    const std::tm time = LocalTime(modified);
    const int year = time.tm_year + 1900;
    return Format("%d/%02d/%02d %d:%02d", time.tm_mon + 1, time.tm_mday,
                  year > 1999 ? year - 2000 : year - 1900, time.tm_hour, time.tm_min);
}

}  // namespace

int FolderRows::Refresh(const std::string& folder, const std::string& extensions,
                        bool withDetails) {
    m_folder = folder;
    m_extensions = extensions;
    m_rows.clear();
    std::vector<std::string> names;
    if (!CK4Files::FindFiles(names, folder + "\\*.*", 0))
        return 0;
    const std::vector<std::string> admitted = SplitExtensions(extensions);
    std::erase_if(
        names, [&](const std::string& name) { return !IsValidExt(ExtensionOf(name), admitted); });
    if (!withDetails)
        std::stable_sort(names.begin(), names.end(), IsLessWithoutCase);
    const auto all = Provided<StoreAccess>::Current().StatusIn(folder, names);
    m_rows.reserve(names.size());
    for (std::size_t i = 0; i < names.size() && i < all.size(); ++i) {
        if (all[i])
            m_rows.push_back({folder + "\\" + names[i], folder.size() + 1, withDetails,
                              all[i]->size, all[i]->modified});
    }
    SortColumnEx(m_sortColumn);
    return 1;
}

int FolderRows::RefreshAgain(bool withDetails) {
    return Refresh(std::string(m_folder), std::string(m_extensions), withDetails);
}

int FolderRows::AddItem(const std::string& path, bool withDetails) {
    FileStatus status;
    if (!Provided<StoreAccess>::Current().GetStatus(path, &status))
        return -1;
    m_rows.push_back(
        {path, path.find_last_of('\\') + 1, withDetails, status.size, status.modified});
    return static_cast<int>(m_rows.size()) - 1;
}

void FolderRows::ShowDetails(std::size_t row, const FileStatus& status) {
    m_rows[row].hasDetails = true;
    m_rows[row].size = status.size;
    m_rows[row].modified = status.modified;
}

void FolderRows::OrderByName() {
    Order(kName, true);
}

void FolderRows::SortColumnEx(int column) {
    m_sortColumn = column;
    Order(column, m_ascending != 0);
}

void FolderRows::Order(int column, bool ascending) {
    std::vector<std::string> texts;
    texts.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        texts.push_back(Text(row, column));
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const std::size_t row : OrderByText(texts, ascending))
        sorted.push_back(std::move(m_rows[row]));
    m_rows = std::move(sorted);
}

void FolderRows::ClickColumn(int column) {
    m_ascending = m_ascending ? 0 : 1;
    SortColumnEx(column);
}

std::string FolderRows::Text(std::size_t index, int column) const {
    const Row& row = m_rows[index];
    const std::string_view name = std::string_view(row.path).substr(row.nameAt);
    if (column == kName)
        return std::string(name);
    if (!row.hasDetails)
        return {};
    switch (column) {
        case kSize:
            return SizeText(row.size);
        case kType:
            return TypeText(row.path, name);
        case kModified:
            return ModifiedText(row.modified);
        default:
            return {};
    }
}

std::string FolderRows::Path(std::size_t row) const {
    return m_rows[row].path;
}

std::vector<std::string> FolderRows::SplitExtensions(std::string_view extensions) {
    std::vector<std::string> list;
    for (std::size_t at = 0; at < extensions.size();) {
        const std::size_t end = std::min(extensions.find(';', at), extensions.size());
        if (end > at)
            list.emplace_back(extensions.substr(at, end - at));
        at = end + 1;
    }
    return list;
}

std::string_view FolderRows::ExtensionOf(std::string_view name) {
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

int FolderRows::IsValidExt(std::string_view extension, const std::vector<std::string>& list) {
    return std::any_of(list.begin(), list.end(), [&](const std::string& entry) {
        return entry == kEveryFile || IsSameWithoutCase(entry, extension);
    });
}

ListView ListViewOfMode(int mode) {
    switch (mode) {
        case 0:
            return ListView::Details;
        case 1:
            return ListView::List;
        case 2:
            return ListView::SmallIcons;
        default:
            return ListView::LargeIcons;
    }
}

int CheckedListViewCommand(int mode) {
    constexpr int kModes = 4;
    const ListView view = mode >= 0 && mode < kModes ? ListViewOfMode(mode) : ListView::Details;
    const auto entry =
        std::find_if(kListViewEntries.begin(), kListViewEntries.end(),
                     [&](const ListViewEntry& candidate) { return candidate.view == view; });
    return entry->command;
}

}  // namespace k4cmn
