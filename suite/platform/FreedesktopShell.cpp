#include "suite/platform/FreedesktopShell.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <exception>
#include <utility>
#include <vector>

#include "suite/platform/CopyOperation.h"
#include "suite/platform/DeleteOperation.h"
#include "suite/platform/FileOperationResult.h"

namespace k4suite {

FreedesktopShell::FreedesktopShell(FileOperationUi& ui, PathMapper nativePath, DesktopTools tools,
                                   TopFolderOf topFolderOf)
    : m_ui(ui),
      m_nativePath(std::move(nativePath)),
      m_topFolderOf(std::move(topFolderOf)),
      m_opener([this](const std::string& path) { return Native(path); }, std::move(tools)) {}

std::string FreedesktopShell::Native(const std::string& path) const {
    return AbsolutePath(m_nativePath ? m_nativePath(path) : path);
}

PlaceOf FreedesktopShell::PlaceIn(const std::string& folder) const {
    if (!m_nativePath || folder.starts_with('/'))
        return {};
    return [this, folder](const std::string& name) { return Native(folder + "/" + name); };
}

int FreedesktopShell::GetMajorVersion(std::uint32_t* version) {
    utsname system;
    std::uint32_t major = 0;
    if (uname(&system) != 0)
        return 0;
    const char* const end = system.release + std::strlen(system.release);
    if (std::from_chars(system.release, end, major).ec != std::errc())
        return 0;
    if (version)
        *version = major;
    return 1;
}

std::uint32_t FreedesktopShell::FileOperation(std::uint32_t function, const std::string& from,
                                              const std::string& to, std::uint16_t flags) try {
    std::vector<std::string> paths = k4cmn::UnpackPaths(from);
    for (std::string& path : paths)
        path = Native(path);
    switch (function) {
        case k4cmn::FO_DELETE:
            return DeleteFiles(paths, flags, m_ui, m_topFolderOf);
        case k4cmn::FO_COPY:
            return CopyFiles(paths, Native(to), flags, m_ui, PlaceIn(to));
        default:
            return kFileOperationFailed;
    }
} catch (const std::exception&) {
    return kFileOperationFailed;
}

int FreedesktopShell::DeleteFile(const std::string& path) {
    const std::string native = Native(path);
    return !native.empty() && unlink(native.c_str()) == 0;
}

std::uint32_t FreedesktopShell::OpenVerb(const std::string& text, int) {
    return m_opener.Open(text);
}

std::uint32_t FreedesktopShell::PrintVerb(const std::string& path) {
    return m_opener.Print(path);
}

std::string FreedesktopShell::OpenCommand(const std::string& extension) {
    return m_opener.CommandFor(extension);
}

std::uint32_t FreedesktopShell::Execute(const std::string& command, int) {
    return m_opener.Execute(command);
}

}  // namespace k4suite
