#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4test {

/// A shell of scripted answers that records every call and touches no file.
class RecordingShell final : public k4cmn::Shell {
 public:
    struct Operation {
        std::uint32_t function;
        std::string from;  ///< the packed block, byte by byte
        std::string to;
        std::uint16_t flags;

        bool operator==(const Operation&) const = default;
    };

    std::vector<std::string>
        calls;  ///< "open X 5", "print X", "delete X", "command .htm", "run X 5", ...
    std::vector<Operation> operations;

    int tellsVersion = 1;
    std::uint32_t version = 4;
    std::uint32_t operationResult = 0;
    std::vector<std::string> undeletable;  ///< paths that DeleteFile() refuses
    std::uint32_t openCode = 33;
    std::uint32_t printCode = 33;
    std::string openCommand;
    std::uint32_t runCode = 33;
    std::function<void()> onOperation;  ///< runs inside FileOperation()
    std::function<void()> onOpen;       ///< runs inside OpenVerb()
    std::function<void()> onRun;        ///< runs inside Execute()

    int GetMajorVersion(std::uint32_t* major) override {
        calls.emplace_back("version");
        if (tellsVersion)
            *major = version;
        return tellsVersion;
    }
    std::uint32_t FileOperation(std::uint32_t function, const std::string& from,
                                const std::string& to, std::uint16_t flags) override {
        calls.push_back("operation " + std::to_string(function));
        operations.push_back({function, from, to, flags});
        if (onOperation)
            onOperation();
        return operationResult;
    }
    int DeleteFile(const std::string& path) override {
        calls.push_back("delete " + path);
        return std::find(undeletable.begin(), undeletable.end(), path) == undeletable.end() ? 1 : 0;
    }
    std::uint32_t OpenVerb(const std::string& text, int showState) override {
        calls.push_back("open " + text + " " + std::to_string(showState));
        if (onOpen)
            onOpen();
        return openCode;
    }
    std::uint32_t PrintVerb(const std::string& path) override {
        calls.push_back("print " + path);
        return printCode;
    }
    std::string OpenCommand(const std::string& extension) override {
        calls.push_back("command " + extension);
        return openCommand;
    }
    std::uint32_t Execute(const std::string& command, int showState) override {
        calls.push_back("run " + command + " " + std::to_string(showState));
        if (onRun)
            onRun();
        return runCode;
    }
};

}  // namespace k4test
