#include "suite/store/FolderFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

#include "k4cmndlg/filestore/SignNames.h"
#include "suite/settings/NameText.h"
#include "suite/store/NamePattern.h"
#include "suite/store/NativePath.h"
#include "suite/store/StorePath.h"
#include "suite/store/UnfinishedCopy.h"

namespace k4suite {

namespace {

constexpr std::string_view kLibraryEnding = ".Lib";

std::string NameOrNumber(std::string_view name, const char* word, std::int32_t value) {
    return name.empty() ? word + std::to_string(value) : std::string(name);
}

/// Whether an entry of a folder is none of the store's: the folder itself, the one above it, and
/// copies that aren't finished.
bool IsUnlisted(std::string_view name) {
    return name == "." || name == ".." || name.starts_with(kUnfinishedCopy);
}

enum class EntryKind { Folder, Other, Gone };

EntryKind KindOf(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK)
        return entry.d_type == DT_DIR ? EntryKind::Folder : EntryKind::Other;
    struct stat status;
    if (fstatat(folder, entry.d_name, &status, 0) != 0)
        return EntryKind::Gone;
    return S_ISDIR(status.st_mode) ? EntryKind::Folder : EntryKind::Other;
}

/// One pass over a folder. @return whether it could be read to its end.
bool ListEntries(const std::string& folder, NamePattern& pattern, EntryKind wanted,
                 std::vector<std::string>& names) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries)
        return false;
    for (errno = 0; const dirent* entry = readdir(entries.get()); errno = 0) {
        const std::string_view name = entry->d_name;
        if (!IsUnlisted(name) && pattern.Matches(name) &&
            KindOf(dirfd(entries.get()), *entry) == wanted)
            names.emplace_back(name);
    }
    return errno == 0;
}

}  // namespace

FolderFiles::FolderFiles(DataHome home) : m_home(std::move(home)) {}

std::string FolderFiles::LibraryOf(const std::string& fullPath) {
    std::string library;
    for (const std::string_view component : StoreComponents(fullPath)) {
        if (component.size() <= kLibraryEnding.size())
            continue;
        const std::size_t length = component.size() - kLibraryEnding.size();
        if (IsSameName(component.substr(length), kLibraryEnding))
            library = component.substr(0, length);
    }
    return library;
}

std::string FolderFiles::BuildSign(std::uint32_t rows, std::uint32_t columns,
                                   tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel, int palette) {
    return std::to_string(rows) + "x" + std::to_string(columns) + "." +
           NameOrNumber(k4cmn::ColorShortName(color), "Color", color) + "." +
           NameOrNumber(k4cmn::PixelShortName(pixel), "Pixel", pixel) + (palette ? ".Palette" : "");
}

std::string FolderFiles::BuildPath(const std::string& server, std::uint32_t rows,
                                   std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                   tag_K4_PIXEL_TECH pixel, const std::string& library,
                                   const std::string& file, const std::string& extension) {
    return server + "\\" + BuildSign(rows, columns, color, pixel, 0) + ".Sign\\" + library +
           ".Lib\\" + file + "." + extension;
}

std::string FolderFiles::GetFullPath(const std::string& path, const std::string& referrer) {
    if (path.empty() || IsAbsoluteStorePath(path))
        return path;
    const std::size_t root = StoreRootLength(referrer);
    const std::size_t lastSeparator = referrer.find_last_of("\\/");
    const bool hasFolder = lastSeparator != std::string::npos;
    const std::size_t folderEnd = hasFolder && path.front() != '\\' ? lastSeparator : 0;
    const char separator = hasFolder ? referrer[lastSeparator] : '\\';
    std::string full =
        JoinStorePath(referrer.substr(0, std::max(root, folderEnd)), root, path, separator);
    // The root of a native referrer is the separator itself.
    if (referrer.starts_with('/') && !full.starts_with('/'))
        full.insert(0, "/");
    return full;
}

int FolderFiles::FindFiles(std::vector<std::string>& names, const std::string& pattern,
                           int folders) {
    names.clear();
    const std::size_t folderEnd = pattern.find_last_of("\\/");
    if (folderEnd == std::string::npos)
        return 0;
    // The separator stays: of "/*.SQ4" it is the folder.
    const std::string folder = NativePath(pattern.substr(0, folderEnd + 1));
    if (folder.empty())
        return 0;
    NamePattern wanted(std::string_view(pattern).substr(folderEnd + 1));
    if (ListEntries(folder, wanted, folders ? EntryKind::Folder : EntryKind::Other, names))
        return 1;
    names.clear();
    return 0;
}

int FolderFiles::IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    return k4cmn::IsColorAndPixelTechValid(color, pixel) ? 1 : 0;
}

std::string FolderFiles::NativePath(const std::string& path) {
    return k4suite::NativePath(m_home, path);
}

}  // namespace k4suite
