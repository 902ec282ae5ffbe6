#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"

namespace k4test {

/// Settings that hold the names of services and nothing else.
class SettingsOfServices final : public k4cmn::RegistryProvider {
 public:
    explicit SettingsOfServices(std::vector<std::string> services)
        : m_services(std::move(services)) {}

    bool readable = true;  ///< false: every read fails

    std::unique_ptr<k4cmn::RegistryKey> OpenUserKey(const std::string&, const std::string&,
                                                    int) override {
        return nullptr;
    }
    std::string BuildKey(const std::string&, const std::string&) override { return {}; }
    int GetServers(std::vector<std::string>&, const std::string&, const std::string&) override {
        return 0;
    }
    int GetServices(std::vector<std::string>& services, const std::string&) override {
        if (!readable)
            return 0;
        services = m_services;
        return 1;
    }
    int GetLocalSigns(std::vector<std::string>&) override { return 0; }
    int GetSignSettings(const std::string&, k4cmn::SignSettings&) override { return 0; }
    int GetDataPath(std::string&) override { return 0; }
    int GetExePath(std::string&) override { return 0; }
    int SetPreviewOptions(const std::string&, const k4cmn::PreviewOptions&) override { return 0; }

 private:
    std::vector<std::string> m_services;
};

}  // namespace k4test
