#include "k4cmndlg/filestore/FileLocation.h"

#include <algorithm>
#include <optional>

#include "k4cmndlg/filestore/PathParts.h"

namespace {

std::string SignFolder(const std::string& server, const std::string& signType) {
    return server + "\\" + signType + ".Sign\\";
}

/// The folder of a file, with '\' at its end.
std::string FolderOf(const FileLocation& place) {
    if (k4cmn::LiesAtServerRoot(place.fileExtension))
        return place.server + "\\";
    return SignFolder(place.server, place.signType) + place.library + ".Lib\\";
}

}  // namespace

std::string FileLocation::Path() const {
    return FolderOf(*this) + file + "." + fileExtension;
}

std::string FileLocation::DisplayPath() const {
    if (signType.empty() || signType == k4cmn::kNoSignType)
        return server + "\\";
    return SignFolder(server, signType) + (library.empty() ? "" : library + ".Lib\\");
}

namespace k4cmn {

namespace {

/// A place in the making: a field is settled once it has a text, be it the empty one.
struct Settled {
    std::optional<std::string> server;
    std::optional<std::string> signType;
    std::optional<std::string> library;
    std::optional<std::string> file;
    std::optional<std::string> fileExtension;
};

/// The part of the extension behind its dot.
std::string_view Bare(const std::string& extension) {
    return extension.empty() ? std::string_view() : std::string_view(extension).substr(1);
}

/// A library folder or a sign type folder settles its field. @return whether it was one.
bool SettleFolder(const PathParts& parts, Settled& settled) {
    if (Bare(parts.extension) == "Lib")
        settled.library = parts.name;
    else if (Bare(parts.extension) == "Sign")
        settled.signType = parts.name;
    else
        return false;
    return true;
}

/// Looks at the end of the path. Leaves `parts` where the walk up begins.
void SettleEnd(PathParts& parts, std::span<const std::string> extensions, tag_K4_FILE_TYPE type,
               Settled& settled) {
    if (!parts.extension.empty()) {
        const auto entry = std::find(extensions.begin(), extensions.end(), Bare(parts.extension));
        if (entry == extensions.end()) {
            SettleFolder(parts, settled);
            return;
        }
        settled.file = parts.name;
        if (type == K4_FILE_TYPE_ALL)
            settled.fileExtension = *entry;
    } else if (!parts.name.empty()) {
        settled.server = parts.drive + parts.folder + parts.name;
    } else {
        parts = StepUp(parts);
        // Without the drive: so a share comes through whole.
        if (!SettleFolder(parts, settled))
            settled.server = parts.folder + parts.name;
    }
}

}  // namespace

std::string SignTypePattern(const std::string& server) {
    return server + "\\*.*.*.Sign";
}

std::string LibraryPattern(const std::string& server, const std::string& signType) {
    return server + "\\" + signType + ".Sign\\*.Lib";
}

std::string FilePattern(const FileLocation& place) {
    return FolderOf(place) + "*." + place.fileExtension;
}

FileLocation TakeApartPath(std::string_view path, std::span<const std::string> extensions,
                           tag_K4_FILE_TYPE type, std::string_view extensionBefore) {
    Settled settled;
    PathParts parts = SplitPath(path);
    SettleEnd(parts, extensions, type, settled);

    const std::string extension = settled.fileExtension.value_or(std::string(extensionBefore));
    if (!LiesAtServerRoot(extension)) {
        if (!settled.library && !settled.signType && !settled.server) {
            parts = StepUp(parts);
            settled.library = parts.name;
        }
        if (!settled.signType && !settled.server) {
            parts = StepUp(parts);
            settled.signType = parts.name;
        }
    }
    if (!settled.server) {
        parts = StepUp(parts);
        settled.server = parts.drive + parts.folder + parts.name;
    }
    return {settled.server.value_or(""), settled.signType.value_or(""),
            settled.library.value_or(""), settled.file.value_or(""),
            settled.fileExtension.value_or("")};
}

}  // namespace k4cmn
