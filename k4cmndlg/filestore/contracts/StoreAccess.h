#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What the file system tells of an entry of the store.
struct FileStatus {
    bool isFolder = false;
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< last change of the content, in seconds since 1970 (UTC)

    bool operator==(const FileStatus&) const = default;
};

/// What dialogs do to single entries of the store, beside listing them (FilesProvider) and the
/// shell's copying and deleting. Every path is a composed one, with '\' as separator. A link counts
/// as what it leads to.
/// Threads: any; an implementation guards itself. An int result is 1 for success and 0 for failure;
/// a failure leaves the platform's error for k4cmnGetLastErrorString() on the calling thread.
class K4CMNCORE_EXPORT StoreAccess {
 public:
    virtual ~StoreAccess();

    /// Reads the status of an entry. @param status null: only whether it exists is asked.
    /// @return 1, or 0 with `status` left as it was.
    virtual int GetStatus(const std::string& path, FileStatus* status) = 0;

    /// What tells an entry from every other one there is: two paths have the same text only if they
    /// lead to one entry, and a file that takes another's place has a text of its own.
    /// @return empty if nothing is there, or if the platform can't tell.
    virtual std::string IdentityOf(const std::string& path);

    /// The status of many entries of one folder, at the cost of one look at each.
    /// @param folder with or without '\' at its end. @param names as FindFiles() gives them.
    /// @return one for each name, in their order; nothing for one that can't be read.
    virtual std::vector<std::optional<FileStatus>> StatusIn(
        const std::string& folder, const std::vector<std::string>& names) = 0;

    /// Makes one folder; the one above it must be there. Fails where there is anything of its name.
    virtual int MakeFolder(const std::string& path) = 0;
    /// Removes a folder that is empty.
    virtual int RemoveFolder(const std::string& path) = 0;
    /// Gives an entry another path. Never replaces what is there; a change of nothing but case is
    /// no other entry.
    virtual int Move(const std::string& from, const std::string& to) = 0;
    /// Gives a folder the read-only attribute, which marks it as more than a plain folder and keeps
    /// nobody from adding to it. A platform that has nothing of the kind does nothing, and that is
    /// success.
    virtual int MarkReadOnly(const std::string& path) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, StoreAccess)
