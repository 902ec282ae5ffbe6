#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

/// A place in the sign file store, as every dialog addresses it. Each field may be empty.
struct FileLocation {
    std::string server;         ///< root of a store: a drive such as "A:", or a server's name
    std::string signType;       ///< the sign type text, without ".Sign"
    std::string library;        ///< the library's name, without ".Lib"
    std::string file;           ///< the file's name, without its extension
    std::string fileExtension;  ///< the three letters of the file type, without the dot

    bool operator==(const FileLocation&) const = default;

    /// The path of the file. Scripts and download lists ("SC4", "DL4") lie at the server's root,
    /// all other files in a library.
    K4CMNCORE_EXPORT std::string Path() const;
    /// What the Path field of a dialog shows: the place of the file, level by level, with '\' at
    /// its end. A sign type that is empty or the word "No" ends it at the server.
    K4CMNCORE_EXPORT std::string DisplayPath() const;
};

namespace k4cmn {

/// What a tree's notice "No signs" gives as a sign type: there is none.
inline constexpr char kNoSignType[] = "No";

/// The key pair of the user's settings under which dialogs keep their last place.
inline constexpr char kFileLocationsKey[] = "File Locations";
inline constexpr char kPreviousSelectionKey[] = "Previous Selection";

/// One field of a place and the name of the value that keeps it.
struct FileLocationField {
    const char* key;
    std::string FileLocation::*field;
};

inline constexpr std::array<FileLocationField, 5> kFileLocationFields{{
    {"Server", &FileLocation::server},
    {"Sign Type", &FileLocation::signType},
    {"Library", &FileLocation::library},
    {"File", &FileLocation::file},
    {"File Extension", &FileLocation::fileExtension},
}};

/// The pattern of a server's sign type folders.
K4CMNCORE_EXPORT std::string SignTypePattern(const std::string& server);
/// The pattern of a sign type's library folders.
K4CMNCORE_EXPORT std::string LibraryPattern(const std::string& server, const std::string& signType);
/// The pattern of the files that lie beside the one that a place names.
K4CMNCORE_EXPORT std::string FilePattern(const FileLocation& place);

/// Takes a path apart into the place that it names, walking up from its end.
///
/// Two properties are by design: a path that ends in '\' and names no library or sign type folder
/// loses its drive ("C:\x\" gives "\x"), and a server keeps no extension.
/// @param path       any text.
/// @param extensions the dialog's current extensions, compared in exact case.
/// @param type       the dialog's file type. Only K4_FILE_TYPE_ALL settles the file extension.
/// @param extensionBefore the dialog's present file extension: unless the path settles another, it
///        says whether the file lies at the server's root. It is not handed back.
/// @return the place; a field that the path doesn't settle is empty.
K4CMNCORE_EXPORT FileLocation TakeApartPath(std::string_view path,
                                            std::span<const std::string> extensions,
                                            tag_K4_FILE_TYPE type,
                                            std::string_view extensionBefore = {});

}  // namespace k4cmn
