#pragma once

#include <new>
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
    std::string throwsAt;  ///< the call that runs out of memory

    int OpenProcessToken() override {
        Record("open");
        return tokenOpens;
    }
    int LookupPrivilege(const char* name) override {
        Record(std::string("look up ") + name);
        return privilegeKnown;
    }
    std::uint32_t AdjustPrivilege(int enable) override {
        Record(enable ? "enable" : "disable");
        return enable ? enableError : 0;
    }
    int ExitSystem(std::uint32_t how) override {
        Record("exit " + std::to_string(how));
        return exits;
    }

 private:
    void Record(const std::string& call) {
        calls.push_back(call);
        if (call == throwsAt)
            throw std::bad_alloc();
    }
};

}  // namespace k4test
