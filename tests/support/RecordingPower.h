#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/PowerControl.h"

namespace k4test {

/// A power control of scripted answers that records every step and ends nothing.
class RecordingPower final : public k4cmn::PowerControl {
 public:
    std::vector<std::string> calls;
    int tokenOpens = 1;
    int privilegeKnown = 1;
    std::uint32_t enableError = 0;
    int exits = 1;

    int OpenProcessToken() override {
        calls.emplace_back("open");
        return tokenOpens;
    }
    int LookupPrivilege(const char* name) override {
        calls.push_back(std::string("look up ") + name);
        return privilegeKnown;
    }
    std::uint32_t AdjustPrivilege(int enable) override {
        calls.emplace_back(enable ? "enable" : "disable");
        return enable ? enableError : 0;
    }
    int ExitSystem(std::uint32_t how) override {
        calls.push_back("exit " + std::to_string(how));
        return exits;
    }
};

}  // namespace k4test
