#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/HelpSystem.h"

namespace k4test {

/// A help system that shows nothing and keeps what it was asked for.
class RecordingHelpSystem final : public k4cmn::HelpSystem {
 public:
    struct Call {
        QWidget* window;
        std::string file;
        std::uint32_t command;
        std::uint32_t data;

        bool operator==(const Call&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Call& call) {
            return out << "WinHelp(" << call.window << ", " << call.file << ", " << call.command
                       << ", 0x" << std::hex << call.data << std::dec << ")";
        }
    };

    std::vector<Call> calls;
    std::string file = "k4test.hlp";

    std::string HelpFilePath() override { return file; }
    void WinHelp(QWidget* window, const std::string& helpFile, std::uint32_t command,
                 std::uint32_t data) override {
        calls.push_back({window, helpFile, command, data});
    }
};

}  // namespace k4test
