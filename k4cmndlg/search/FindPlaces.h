#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchPlace.h"

namespace k4cmn {

/// The images of the tree of places to search, by their positions in its list.
enum class PlaceImage : std::uint8_t { Notice, FileServers, Server, SignType, Library };

/// The data of an item at the root that stands for a drive.
inline constexpr int kDriveData = 1000;

/// An item of the tree of places to search.
struct PlaceItem {
    std::string text;
    PlaceImage image = PlaceImage::Notice;
    int data = 0;                ///< kDriveData, or the running number of a server
    bool hasPlaceholder = true;  ///< something stands below it, which is read when it is opened

    bool operator==(const PlaceItem&) const = default;
};

/// Where an item stands: the texts from the root down to itself, and the data of the one at the
/// root, which says whether that is a drive.
struct PlacePath {
    std::vector<std::string> texts;
    int rootData = 0;
};

/// Whether a drive counts: whether its root can be asked for its status.
/// @param root with its '\' ("A:\"). @return 1 or 0.
K4CMNCORE_EXPORT int CheckRM(const std::string& root);

/// The items at the root: the removable drives with something in them, then "File Servers", which
/// has the servers below it from the beginning. That is always there, so the root is never empty.
K4CMNCORE_EXPORT std::vector<PlaceItem> RootPlaces();

/// The items below one, read anew and in no order: of a drive and of a server the sign types, of
/// "File Servers" the servers of this system, of a sign type its libraries. Where a folder has none
/// or can't be read, a notice says so. None below anything else.
K4CMNCORE_EXPORT std::vector<PlaceItem> PlacesBelow(const PlacePath& path);

/// The item that stands below one that can be opened until it is. It shows nothing.
K4CMNCORE_EXPORT PlaceItem Placeholder(const PlacePath& path);

/// What choosing an item means. A drive is a server; "File Servers" stands for all of them. The
/// texts count as they are, those of placeholders and notices too.
K4CMNCORE_EXPORT SearchPlace ReadPlace(const PlacePath& path);

}  // namespace k4cmn
