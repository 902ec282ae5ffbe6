#pragma once

#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "suite/settings/DataHome.h"

namespace k4suite {

/// Single entries of the sign file store over real folders. NativePath() says where a path lies,
/// and case doesn't count in names.
///
/// Nothing stands for the read-only attribute of a folder here (see FolderFiles), so marking is
/// success wherever there is a folder.
///
/// Threads: any.
class FolderAccess final : public k4cmn::StoreAccess {
 public:
    explicit FolderAccess(DataHome home);

    int GetStatus(const std::string& path, k4cmn::FileStatus* status) override;
    std::string IdentityOf(const std::string& path) override;
    /// A name is one entry of the folder: "..", and one with a separator or a zero in it, is none.
    /// The entries are listed only where a name isn't there in exact case, and once.
    std::vector<std::optional<k4cmn::FileStatus>> StatusIn(
        const std::string& folder, const std::vector<std::string>& names) override;
    int MakeFolder(const std::string& path) override;
    /// A link to a folder isn't removed.
    int RemoveFolder(const std::string& path) override;
    /// Within one file system.
    int Move(const std::string& from, const std::string& to) override;
    int MarkReadOnly(const std::string& path) override;

 private:
    /// Where a path lies; empty, with the platform's error set, if there is no such place.
    std::string Native(const std::string& path) const;

    const DataHome m_home;
};

}  // namespace k4suite
