#pragma once

#include <string>

namespace k4suite {

/// One trash on a disk, in the layout that desktops share: "files" holds what was thrown away,
/// "info" holds a "NAME.trashinfo" beside each, saying where it came from and when it went, and
/// "directorysizes" the sizes of the folders among them.
/// Threads: any; several programs may use one trash at the same time.
class TrashFolder {
 public:
    /// @param folder the trash.
    /// @param top    the top folder of its mount: origins are noted relative to it. Empty for the
    ///               home trash, which notes them absolute.
    explicit TrashFolder(std::string folder, std::string top = {});

    /// Makes what is missing of the trash. Folders that it makes are the user's alone.
    /// @param parents makes the folders above, too.
    /// @return 0, or the system's error. EPERM where something untrusted is in the place: a link
    ///         instead of a folder, or somebody else's folder, in a trash of a shared disk.
    int Prepare(bool parents) const;

    /// Moves a file, folder or link into the trash.
    /// @param path     absolute, its folder without links.
    /// @param itsFault set to whether the failure lies with the path, and not with the trash.
    /// @return 0, or the system's error; then all is as it was.
    int Take(const std::string& path, bool& itsFault) const;

 private:
    int TakeAs(const std::string& path, const std::string& name, bool& itsFault) const;
    int WriteInfo(const std::string& infoFile, const std::string& path) const;
    void NoteSize(const std::string& name) const;
    bool IsTrusted(const std::string& folder) const;

    std::string m_folder;
    std::string m_top;
};

/// A path as a trash notes it: all bytes but letters, digits, '/', '-', '_', '.' and '~' as %XX.
std::string PercentEncoded(const std::string& path);

}  // namespace k4suite
