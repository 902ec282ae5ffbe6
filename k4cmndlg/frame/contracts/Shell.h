#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

inline constexpr std::uint32_t FO_COPY = 2;    ///< file operation: copy
inline constexpr std::uint32_t FO_DELETE = 3;  ///< file operation: delete

inline constexpr std::uint16_t FOF_SILENT = 0x04;          ///< no progress is shown
inline constexpr std::uint16_t FOF_NOCONFIRMATION = 0x10;  ///< every question is answered Yes
inline constexpr std::uint16_t FOF_ALLOWUNDO = 0x40;       ///< a deletion can be undone
inline constexpr std::uint16_t FOF_FILESONLY = 0x80;       ///< folders are left out

inline constexpr int SW_SHOW = 5;  ///< show state handed to an opened program

/// Open codes up to this one are failures.
inline constexpr std::uint32_t kLastOpenError = 32;

/// The shell of the platform: file operations with questions and progress of its own, and opening a
/// document or a link with the program made for it.
/// Threads: the caller's; an operation returns when it is done, and may run an event loop of its
/// own for its questions and its progress.
class K4CMNCORE_EXPORT Shell {
 public:
    virtual ~Shell();

    /// The platform's major version. Below 4 there is no FileOperation().
    /// @return 1 and the version, or 0 if the platform doesn't tell.
    virtual int GetMajorVersion(std::uint32_t* version) = 0;

    /// Carries out a file operation.
    /// @param function FO_COPY or FO_DELETE.
    /// @param from     the packed list: each path ended by a zero, and one more zero behind the
    ///                 last. Paths are native or of the store ('\' and server texts).
    /// @param to       the destination folder or, for a single file, file; unused by FO_DELETE.
    /// @param flags    the sum of FOF_ values.
    /// @return 0 for success; any other value for failure or where a person cancelled.
    virtual std::uint32_t FileOperation(std::uint32_t function, const std::string& from,
                                        const std::string& to, std::uint16_t flags) = 0;

    /// Deletes one file for good, without question.
    /// @return 1 if it is gone, else 0.
    virtual int DeleteFile(const std::string& path) = 0;

    /// Opens a text (a link, a document) with the program made for it.
    /// @return a value above 32 for success, else the open code: 2 no such file, 3 no such path,
    ///         5 access denied, 31 no program for it, and so on.
    virtual std::uint32_t OpenVerb(const std::string& text, int showState) = 0;

    /// Prints a document with the program made for it.
    /// @return as OpenVerb(); 31 on a platform that has no such verb, and for what can't be
    /// printed.
    virtual std::uint32_t PrintVerb(const std::string& path);

    /// The command that the platform has registered for opening documents of an extension (".htm").
    /// @return the command with "%1" where the document goes, or the empty text if there is none.
    virtual std::string OpenCommand(const std::string& extension) = 0;

    /// Starts a command line.
    /// @return as OpenVerb().
    virtual std::uint32_t Execute(const std::string& command, int showState) = 0;
};

/// Packs paths the way FileOperation() takes them: each with its ending zero, and one zero more.
K4CMNCORE_EXPORT std::string PackPaths(const std::vector<std::string>& paths);

/// The reverse of PackPaths(). Reads up to the first empty path or the end of the text.
K4CMNCORE_EXPORT std::vector<std::string> UnpackPaths(const std::string& packed);

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, Shell)
