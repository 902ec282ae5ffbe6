#include "apps/k4ctl/Services.h"

#include <algorithm>

#include "apps/k4ctl/Names.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"

namespace k4ctl {

int ConfiguredServices(std::vector<std::string>& services) {
    return CK4Registry::GetRegistryServices(services);
}

std::string ConfiguredInstead(const std::string& service) {
    std::vector<std::string> services;
    if (!ConfiguredServices(services) || services.empty() || service.empty() ||
        std::any_of(services.begin(), services.end(),
                    [&](const std::string& each) { return SameWord(each, service); })) {
        return {};
    }
    std::string names;
    for (const std::string& each : services) {
        names += (names.empty() ? "" : ", ") + each;
    }
    return "no service is named \"" + service + "\"; the configured ones are " + names;
}

}  // namespace k4ctl
