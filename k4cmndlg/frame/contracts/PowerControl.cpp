#include "k4cmndlg/frame/contracts/PowerControl.h"

namespace k4cmn {

PowerControl::~PowerControl() = default;

namespace {

class AbsentPowerControl final : public PowerControl {
 public:
    int OpenProcessToken() override { return 0; }
    int LookupPrivilege(const char*) override { return 0; }
    std::uint32_t AdjustPrivilege(int) override { return 1; }
    int ExitSystem(std::uint32_t) override { return 0; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(PowerControl, AbsentPowerControl)
