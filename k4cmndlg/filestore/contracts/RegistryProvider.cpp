#include "k4cmndlg/filestore/contracts/RegistryProvider.h"

namespace k4cmn {

RegistryKey::~RegistryKey() = default;
RegistryProvider::~RegistryProvider() = default;

namespace {

class AbsentRegistry final : public RegistryProvider {
 public:
    std::unique_ptr<RegistryKey> OpenUserKey(const std::string&, const std::string&, int) override {
        return nullptr;
    }
    std::string BuildKey(const std::string&, const std::string&) override { return {}; }
    int GetServers(std::vector<std::string>&, const std::string&, const std::string&) override {
        return 0;
    }
    int GetServices(std::vector<std::string>&, const std::string&) override { return 0; }
    int GetLocalSigns(std::vector<std::string>&) override { return 0; }
    int GetSignSettings(const std::string&, SignSettings&) override { return 0; }
    int GetDataPath(std::string&) override { return 0; }
    int GetExePath(std::string&) override { return 0; }
    int SetPreviewOptions(const std::string&, const PreviewOptions&) override { return 0; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(RegistryProvider, AbsentRegistry)
