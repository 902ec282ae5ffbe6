#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/apps/k4ctl/SettingsOfServices.h"
#include "tests/support/RecordingSSRpc.h"

namespace k4test {

/// Commands over a sign service of scripted answers and two configured services.
class OnScriptedService : public testing::Test {
 protected:
    /// What was called between connecting and dropping the connection.
    std::vector<std::string> Work() const {
        std::vector<std::string> work;
        for (const std::string& call : rpc.calls) {
            if (!call.starts_with("k4ssIsServer") && !call.starts_with("k4ssConnect") &&
                !call.starts_with("k4ssDisconnect") && !call.starts_with("k4ssPing"))
                work.push_back(call);
        }
        return work;
    }

    RecordingSSRpc rpc;
    SettingsOfServices settings{{"Local", "Arena"}};
    k4cmn::ScopedProvider<K4SSRpc> useRpc{rpc};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useSettings{settings};
};

}  // namespace k4test
