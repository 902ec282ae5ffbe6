#pragma once

#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filestore/FileLocation.h"

namespace k4ctl {

/// A place of the store that is there, with its names as they are written there.
struct StorePlace {
    enum class Kind { Server, SignType, Library, File };

    Kind kind = Kind::Server;
    FileLocation where;

    /// The composed path: of a folder with '\' at its end.
    std::string Path() const;
    /// "a server", "a sign type", "a library" or "a file".
    const char* KindText() const;
};

/// Finds places of the store by arguments of a command line. An argument is a composed path, in
/// which '/' separates as '\' does, and case doesn't count: what the tree of the file selection
/// dialog has, palettes included, and the files of its lists.
///
/// Every look reads the store anew.
class StorePlaces {
 public:
    StorePlaces();

    /// The servers, in the tree's order. @return 1, or 0 if they can't be read.
    int ReadServers(std::vector<std::string>& servers);

    /// The folder or file that an argument names.
    /// @param problem filled where there is none.
    std::optional<StorePlace> Find(const std::string& argument, std::string& problem);

    /// As above, but the last name may be a pattern of files with '*' and '?'; a file that has that
    /// very name comes before.
    /// @return none, with words in `problem`, where nothing matches.
    std::vector<StorePlace> FindAll(const std::string& argument, std::string& problem);

 private:
    bool FindSignType(StorePlace& place, const std::string& signType);
    bool FindLibrary(StorePlace& place, const std::string& library);
    static std::vector<StorePlace> FindFiles(const StorePlace& folder, const std::string& name);

    k4cmn::FileTree m_tree;
};

}  // namespace k4ctl
