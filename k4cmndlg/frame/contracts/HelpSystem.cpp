#include "k4cmndlg/frame/contracts/HelpSystem.h"

namespace k4cmn {

HelpSystem::~HelpSystem() = default;

namespace {

class AbsentHelpSystem final : public HelpSystem {
 public:
    std::string HelpFilePath() override { return {}; }
    void WinHelp(QWidget*, const std::string&, std::uint32_t, std::uint32_t) override {}
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(HelpSystem, AbsentHelpSystem)
