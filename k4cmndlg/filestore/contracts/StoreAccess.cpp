#include "k4cmndlg/filestore/contracts/StoreAccess.h"

#include <cerrno>

namespace k4cmn {

StoreAccess::~StoreAccess() = default;

std::string StoreAccess::IdentityOf(const std::string&) {
    return {};
}

namespace {

class AbsentStoreAccess final : public StoreAccess {
 public:
    int GetStatus(const std::string&, FileStatus*) override { return Fail(); }
    std::vector<std::optional<FileStatus>> StatusIn(
        const std::string&, const std::vector<std::string>& names) override {
        return std::vector<std::optional<FileStatus>>(names.size());
    }
    int MakeFolder(const std::string&) override { return Fail(); }
    int RemoveFolder(const std::string&) override { return Fail(); }
    int Move(const std::string&, const std::string&) override { return Fail(); }
    int MarkReadOnly(const std::string&) override { return Fail(); }

 private:
    static int Fail() {
        errno = ENODEV;
        return 0;
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(StoreAccess, AbsentStoreAccess)
