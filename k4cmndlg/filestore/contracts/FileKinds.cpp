#include "k4cmndlg/filestore/contracts/FileKinds.h"

namespace k4cmn {

FileKinds::~FileKinds() = default;

std::string FileKinds::IconName(const std::string&) {
    return {};
}

namespace {

class AbsentFileKinds final : public FileKinds {
 public:
    std::string TypeName(const std::string&) override { return {}; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(FileKinds, AbsentFileKinds)
