#pragma once

#include <string>
#include <vector>

#include "suite/platform/FileSystem.h"
#include "suite/platform/TrashFolder.h"

namespace k4suite {

/// The trash that the desktop shows: for what lies in the mount of the user's home, the trash in
/// the user's data folder ($XDG_DATA_HOME, else ~/.local/share); for anything else, a trash at the
/// top of its own mount, so that nothing is ever copied. Files are renamed into it, or stay.
/// Threads: any.
class Trash {
 public:
    enum class Outcome {
        Moved,
        Missing,  ///< there is no such file
        NoPlace,  ///< no trash can hold it
        Failed,   ///< it can't be taken away from where it is
    };

    struct Result {
        Outcome outcome = Outcome::Failed;
        int error = 0;  ///< the system's error, where it wasn't moved
    };

    explicit Trash(TopFolderOf topFolderOf = MountTopOf);

    /// Moves a file, a folder with all in it, or a link (not what it leads to) into the trash.
    /// @param path absolute.
    Result Move(const std::string& path) const;

    /// The trash in the user's data folder. It need not exist.
    static std::string HomeTrash();

 private:
    struct Place {
        TrashFolder trash;
        bool makesParents;
    };

    /// The trashes for what lies in a folder, the preferred one first.
    std::vector<Place> PlacesFor(const std::string& folder) const;

    TopFolderOf m_topFolderOf;
};

}  // namespace k4suite
