#pragma once

#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchTypes.h"

namespace k4cmn {

/// The server text that stands for all servers of this system.
inline constexpr char kFileServers[] = "File Servers";

/// A place to search: all servers, a server, a sign type of it, or a library. Each field may be
/// empty.
struct SearchPlace {
    std::string server;  ///< a server, the text of a drive, or kFileServers
    std::string signType;
    std::string library;

    bool operator==(const SearchPlace&) const = default;
};

/// A place as a path, with '\' at its end: the server, the sign type and the library, as far as
/// each is given and the one before it is.
K4CMNCORE_EXPORT std::string SearchPathText(const SearchPlace& place);

/// A path of the results, taken apart.
struct FoundPath {
    SearchPlace place;
    std::string file;  ///< the name without its extension; empty for an unknown file type
    int type = kUnknownSearchType;
};

/// Takes a path apart, level by level from its end, without looking at what the levels are: a path
/// that ends at a server gives the server's name for a library. That is on purpose.
K4CMNCORE_EXPORT FoundPath TakeApartFoundPath(std::string_view path);

}  // namespace k4cmn
