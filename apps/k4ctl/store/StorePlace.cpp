#include "apps/k4ctl/store/StorePlace.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/StoreFolders.h"

namespace k4ctl {
namespace {

using k4cmn::FileTreeItem;

bool IsSeparator(char byte) {
    return byte == '\\' || byte == '/';
}

std::string WithBackslashes(std::string text) {
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

/// The components of what stands behind a server.
std::vector<std::string> Components(std::string_view path) {
    std::vector<std::string> components;
    for (std::size_t at = 0; at < path.size();) {
        const auto end = static_cast<std::size_t>(
            std::find_if(path.begin() + static_cast<std::ptrdiff_t>(at), path.end(), IsSeparator) -
            path.begin());
        if (end > at) {
            components.emplace_back(path.substr(at, end - at));
        }
        at = end + 1;
    }
    return components;
}

/// A folder's name without its ending; nothing where it has another one.
std::optional<std::string> WithoutEnding(const std::string& name, std::string_view ending) {
    if (name.size() <= ending.size() ||
        !k4cmn::IsSameWithoutCase(std::string_view(name).substr(name.size() - ending.size()),
                                  ending)) {
        return std::nullopt;
    }
    return name.substr(0, name.size() - ending.size());
}

/// Whether an item stands for something, and isn't a notice that nothing is there.
bool IsReal(const FileTreeItem* item) {
    return item && item->Image() != k4cmn::kNoticeImage;
}

/// A file of a folder by its name there; nothing for one that isn't of the store's types, or whose
/// type lies elsewhere.
std::optional<StorePlace> FileIn(const StorePlace& folder, const std::string& name) {
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos) {
        return std::nullopt;
    }
    const std::string_view ending = std::string_view(name).substr(dot + 1);
    for (const std::string& extension : k4cmn::ExtensionsOf(k4cmn::kDefaultFileType)) {
        const bool isRoot = folder.kind == StorePlace::Kind::Server;
        if (k4cmn::IsSameWithoutCase(extension, ending) &&
            k4cmn::LiesAtServerRoot(extension) == isRoot) {
            StorePlace file{StorePlace::Kind::File, folder.where};
            file.where.file = name.substr(0, dot);
            file.where.fileExtension = extension;
            return file;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string StorePlace::Path() const {
    switch (kind) {
        case Kind::Server:
            return k4cmn::ServerFolder(where.server);
        case Kind::SignType:
            return k4cmn::SignTypeFolder(where.server, where.signType);
        case Kind::Library:
            return k4cmn::LibraryFolder(where);
        case Kind::File:
            break;
    }
    return where.Path();
}

const char* StorePlace::KindText() const {
    switch (kind) {
        case Kind::Server:
            return "a server";
        case Kind::SignType:
            return "a sign type";
        case Kind::Library:
            return "a library";
        case Kind::File:
            break;
    }
    return "a file";
}

StorePlaces::StorePlaces() {
    m_tree.AddAllServerItems();
}

int StorePlaces::ReadServers(std::vector<std::string>& servers) {
    servers.clear();
    const int isRead = m_tree.AddAllServerItems();
    for (const auto& item : m_tree.Root().Children()) {
        if (IsReal(item.get())) {
            servers.push_back(item->Text());
        }
    }
    return isRead;
}

bool StorePlaces::FindSignType(StorePlace& place, const std::string& signType) {
    FileTreeItem* const server = m_tree.FindServer(place.where.server);
    for (const bool palettes : {false, true}) {
        m_tree.filter.palettes = palettes;
        m_tree.Expand(*server);
        if (const FileTreeItem* item = k4cmn::FileTree::FindSignType(*server, signType);
            IsReal(item)) {
            place.kind = StorePlace::Kind::SignType;
            place.where.signType = k4cmn::FileTree::SignTypeOf(item->Text());
            return true;
        }
    }
    return false;
}

bool StorePlaces::FindLibrary(StorePlace& place, const std::string& library) {
    // The server is open at that sign type.
    FileTreeItem* const server = m_tree.FindServer(place.where.server);
    FileTreeItem* const signType = k4cmn::FileTree::FindSignType(*server, place.where.signType);
    m_tree.Expand(*signType);
    const FileTreeItem* const item = k4cmn::FileTree::FindLibrary(*signType, library);
    if (!IsReal(item)) {
        return false;
    }
    place.kind = StorePlace::Kind::Library;
    place.where.library = item->Text();
    return true;
}

std::vector<StorePlace> StorePlaces::FindFiles(const StorePlace& folder, const std::string& name) {
    std::vector<std::string> names;
    k4cmn::FindNames(names, folder.Path() + name, 0);
    if (std::find(names.begin(), names.end(), name) != names.end()) {
        names = {name};
    }
    std::sort(names.begin(), names.end(), k4cmn::IsLessWithoutCase);
    std::vector<StorePlace> files;
    for (const std::string& each : names) {
        if (const auto file = FileIn(folder, each)) {
            files.push_back(*file);
        }
    }
    return files;
}

std::vector<StorePlace> StorePlaces::FindAll(const std::string& argument, std::string& problem) {
    const std::string path = WithBackslashes(argument);
    problem = "There is no place \"" + argument + "\".";
    StorePlace place;
    std::size_t length = 0;
    for (const auto& item : m_tree.Root().Children()) {
        const std::string server = WithBackslashes(item->Text());
        const bool isAbove =
            path.size() >= server.size() &&
            k4cmn::IsSameWithoutCase(std::string_view(path).substr(0, server.size()), server) &&
            (path.size() == server.size() || path[server.size()] == '\\');
        if (IsReal(item.get()) && isAbove && server.size() > length) {
            place.where.server = item->Text();
            length = server.size();
        }
    }
    if (length == 0) {
        problem += " k4ctl store ls lists the servers.";
        return {};
    }
    const std::vector<std::string> components = Components(std::string_view(path).substr(length));
    for (std::size_t at = 0; at < components.size(); ++at) {
        const std::string& name = components[at];
        bool isFound = false;
        if (const auto signType = WithoutEnding(name, k4cmn::kSignEnding);
            place.kind == StorePlace::Kind::Server && signType) {
            isFound = FindSignType(place, *signType);
        } else if (const auto library = WithoutEnding(name, k4cmn::kLibraryEnding);
                   place.kind == StorePlace::Kind::SignType && library) {
            isFound = FindLibrary(place, *library);
        } else if (at + 1 == components.size() && place.kind != StorePlace::Kind::SignType) {
            return FindFiles(place, name);
        }
        if (!isFound) {
            return {};
        }
    }
    return {place};
}

std::optional<StorePlace> StorePlaces::Find(const std::string& argument, std::string& problem) {
    const std::vector<StorePlace> all = FindAll(argument, problem);
    if (all.empty()) {
        return std::nullopt;
    }
    if (all.size() > 1) {
        problem = "\"" + argument + "\" names several files.";
        return std::nullopt;
    }
    return all.front();
}

}  // namespace k4ctl
