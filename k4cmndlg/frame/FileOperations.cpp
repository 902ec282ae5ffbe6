#include "k4cmndlg/frame/FileOperations.h"

#include <algorithm>
#include <exception>

#include "k4cmndlg/frame/contracts/Shell.h"

using k4cmn::Provided;
using k4cmn::Shell;

namespace {

constexpr std::uint32_t kFirstWithFileOperations = 4;

bool HasFileOperations(Shell& shell) {
    std::uint32_t version = 0;
    return shell.GetMajorVersion(&version) && version >= kFirstWithFileOperations;
}

/// Whether a path says in the packed block what it says by itself: a zero would begin another path
/// there, and an empty path would end the list.
bool CanBePacked(const std::string& path) {
    return !path.empty() && path.find('\0') == std::string::npos;
}

int CarryOut(Shell& shell, std::uint32_t function, const std::vector<std::string>& paths,
             const std::string& packed, const std::string& to, std::uint16_t flags) {
    if (!std::all_of(paths.begin(), paths.end(), CanBePacked))
        return 0;
    return shell.FileOperation(function, packed, to, flags) == 0 ? 1 : 0;
}

int DeleteOneByOne(Shell& shell, const std::vector<std::string>& paths) {
    int allGone = 1;
    for (const std::string& path : paths) {
        if (!CanBePacked(path) || !shell.DeleteFile(path))
            allGone = 0;
    }
    return allGone;
}

}  // namespace

int k4cmnDeleteFile(const std::vector<std::string>& paths, std::uint16_t flags) try {
    const std::string packed = k4cmn::PackPaths(paths);
    Shell& shell = Provided<Shell>::Current();
    if (!HasFileOperations(shell))
        return DeleteOneByOne(shell, paths);
    const auto undoable = static_cast<std::uint16_t>(flags | k4cmn::FOF_ALLOWUNDO);
    return CarryOut(shell, k4cmn::FO_DELETE, paths, packed, {}, undoable);
} catch (const std::exception&) {
    return 0;  // no memory for the block
}

int k4cmnDeleteFile(const std::string& path, std::uint16_t flags) try {
    return k4cmnDeleteFile(std::vector<std::string>{path}, flags);
} catch (const std::exception&) {
    return 0;
}

int k4cmnCopyFile(const std::vector<std::string>& paths, const std::string& destination) try {
    const std::string packed = k4cmn::PackPaths(paths);
    Shell& shell = Provided<Shell>::Current();
    if (!HasFileOperations(shell))
        return 0;
    return CarryOut(shell, k4cmn::FO_COPY, paths, packed, destination, k4cmn::FOF_FILESONLY);
} catch (const std::exception&) {
    return 0;  // no memory for the block
}

int k4cmnCopyFile(const std::string& path, const std::string& destination) try {
    return k4cmnCopyFile(std::vector<std::string>{path}, destination);
} catch (const std::exception&) {
    return 0;
}
