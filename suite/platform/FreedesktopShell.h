#pragma once

#include <functional>
#include <string>

#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/platform/CopyOperation.h"
#include "suite/platform/DesktopOpener.h"
#include "suite/platform/FileOperationUi.h"
#include "suite/platform/FileSystem.h"

namespace k4suite {

/// The shell of a Freedesktop desktop: the trash, copies with questions and progress, and the
/// desktop's programs for links and documents. DeleteFiles(), CopyFiles() and DesktopOpener say how
/// each behaves.
///
/// In a destination of the store case doesn't count: a copy takes the place of the file that has
/// its name in any case, after the question. In a destination given as a native path ("/...") names
/// are the file system's own.
///
/// FileOperation() gives 0 for success, 1223 where a person ended it, and 1 for any other failure.
/// GetMajorVersion() gives the kernel's major version, which is at least 4 wherever this builds.
/// Show states are up to the programs that are started.
/// Threads: as the contract says; operations that ask or report do it on the caller's thread.
class FreedesktopShell final : public k4cmn::Shell {
 public:
    using PathMapper = std::function<std::string(const std::string&)>;

    /// @param ui         questions and progress; must outlive the object.
    /// @param nativePath maps any path that comes in, of the store or native, to the file system,
    ///                   and gives an empty text where there is no such place. Null: paths are
    ///                   taken as they are, relative to the current folder.
    explicit FreedesktopShell(FileOperationUi& ui, PathMapper nativePath = {},
                              DesktopTools tools = {}, TopFolderOf topFolderOf = MountTopOf);

    int GetMajorVersion(std::uint32_t* version) override;
    std::uint32_t FileOperation(std::uint32_t function, const std::string& from,
                                const std::string& to, std::uint16_t flags) override;
    int DeleteFile(const std::string& path) override;
    std::uint32_t OpenVerb(const std::string& text, int showState) override;
    std::uint32_t PrintVerb(const std::string& path) override;
    std::string OpenCommand(const std::string& extension) override;
    std::uint32_t Execute(const std::string& command, int showState) override;

 private:
    std::string Native(const std::string& path) const;
    PlaceOf PlaceIn(const std::string& folder) const;

    FileOperationUi& m_ui;
    PathMapper m_nativePath;
    TopFolderOf m_topFolderOf;
    DesktopOpener m_opener;
};

}  // namespace k4suite
