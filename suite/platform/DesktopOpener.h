#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "suite/platform/ProcessLauncher.h"

namespace k4suite {

/// The programs of the desktop that open things, and how long they are waited for.
struct DesktopTools {
    std::string opener = "xdg-open";     ///< opens a link or a file
    std::string mimeQuery = "xdg-mime";  ///< "query default TYPE" names a desktop entry
    std::string printer = "lp";          ///< prints a file
    /// An opener that still runs after this is taken to show the document: some stay until it is
    /// closed.
    std::chrono::milliseconds patience{3000};
};

/// The open codes that this desktop gives. Anything above 32 is success.
enum OpenCode : std::uint32_t {
    kOpenNoResources = 0,
    kOpenNoFile = 2,
    kOpenNoPath = 3,
    kOpenDenied = 5,
    kOpenNoMemory = 8,
    kOpenNoExecutable = 11,
    kOpenNoProgram = 31,
    kOpenDone = 33,
};

/// Opens links and documents with the programs that the desktop has for them.
/// Threads: one at a time.
class DesktopOpener {
 public:
    /// @param nativePath maps a path to the file system; gives an empty text for no such place.
    DesktopOpener(std::function<std::string(const std::string&)> nativePath, DesktopTools tools);

    /// Opens a text: a link of any scheme of two letters or more, a name that begins with "www.",
    /// or the path of a file or folder. What lies here is looked at first, which is where the codes
    /// for "no file", "no path" and "denied" come from.
    std::uint32_t Open(const std::string& text);

    /// Hands a file to the system's printing, which prints it on its default printer. A file that
    /// isn't there, one that IsPrintable() refuses, such as a sequence (31), no such printing, no
    /// printer: a code as Open() gives.
    std::uint32_t Print(const std::string& path);

    /// The command of the default program for documents of an extension (".htm"), with "%1" for the
    /// document; empty if there is none.
    std::string CommandFor(const std::string& extension) const;

    /// Starts a command line, without waiting.
    std::uint32_t Execute(const std::string& command);

 private:
    std::uint32_t RunOpener(const std::string& what);

    std::function<std::string(const std::string&)> m_nativePath;
    DesktopTools m_tools;
    ProcessLauncher m_launcher;
};

}  // namespace k4suite
