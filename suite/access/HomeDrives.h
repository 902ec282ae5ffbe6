#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/Drives.h"
#include "suite/settings/DataHome.h"

namespace k4suite {

/// The drives of a data home. One that is a link ("drives/E" leads to where a medium is mounted) is
/// removable: the link stays, and something lies behind it while the medium is there.
/// Threads: any.
class HomeDrives final : public k4cmn::Drives {
 public:
    explicit HomeDrives(DataHome home);

    /// In the order of their letters.
    std::vector<std::string> RemovableRoots() override;

 private:
    const DataHome m_home;
};

}  // namespace k4suite
