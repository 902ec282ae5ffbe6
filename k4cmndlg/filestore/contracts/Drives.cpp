#include "k4cmndlg/filestore/contracts/Drives.h"

namespace k4cmn {

Drives::~Drives() = default;

namespace {

class AbsentDrives final : public Drives {
 public:
    std::vector<std::string> RemovableRoots() override { return {}; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Drives, AbsentDrives)
