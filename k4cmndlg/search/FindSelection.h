#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchPlace.h"

namespace k4cmn {

/// What the search dialog has taken over: where the file of the results lies that was selected
/// last, which one it is, and the type of the files. It follows each change of the selection.
class K4CMNCORE_EXPORT FindSelection {
 public:
    SearchPlace place;
    std::string file;  ///< the name without its extension; empty for none
    int type = 0;      ///< index in kSearchExtensions, or kUnknownSearchType

    /// Takes a path apart. @param path of a file; empty where no row is selected.
    /// @return 1, or 0 for a file of an unknown type, which leaves a place without a file.
    int Take(std::string_view path);
    /// The same for a path that says where to search: one without a known type leaves the type.
    void TakeSearchPath(std::string_view path);

    /// The extension of the type; empty for an unknown one.
    std::string_view Extension() const { return SearchExtension(type); }
    bool IsSequence() const { return type == kSequenceSearchType; }
    /// The path of the file, in the library folder of the place whatever its type is. Not to be
    /// asked for where the type is unknown.
    std::string Path() const;

    /// The paths of rows that are to be deleted, by the texts of their first column: in the
    /// library, or at the server's root for files that belong there, and with the extension of the
    /// type, whatever the files' own place and extension are. None for an unknown type.
    std::vector<std::string> PathsToDelete(const std::vector<std::string>& names) const;
    /// Whether the file can be handed to a program for printing: its type is known, and its name
    /// has none of " #%;/\". A blank counts too.
    bool CanPrint() const;

    bool operator==(const FindSelection&) const = default;
};

/// What is said of the number of files that were found: "No files found", "1 file", "12 files".
K4CMNCORE_EXPORT std::string FoundCountText(std::size_t count);

}  // namespace k4cmn
