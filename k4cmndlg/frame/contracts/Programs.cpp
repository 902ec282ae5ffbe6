#include "k4cmndlg/frame/contracts/Programs.h"

namespace k4cmn {

Programs::~Programs() = default;

namespace {

class AbsentPrograms final : public Programs {
 public:
    std::unique_ptr<RunningProgram> Start(const std::string&, int) override { return nullptr; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Programs, AbsentPrograms)
