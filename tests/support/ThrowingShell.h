#pragma once

#include <new>
#include <string>

#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4test {

/// A shell that runs out of memory in every operation but the one that tells its version.
class ThrowingShell final : public k4cmn::Shell {
 public:
    std::uint32_t version = 4;

    int GetMajorVersion(std::uint32_t* major) override {
        *major = version;
        return 1;
    }
    std::uint32_t FileOperation(std::uint32_t, const std::string&, const std::string&,
                                std::uint16_t) override {
        throw std::bad_alloc();
    }
    int DeleteFile(const std::string&) override { throw std::bad_alloc(); }
    std::uint32_t OpenVerb(const std::string&, int) override { throw std::bad_alloc(); }
    std::string OpenCommand(const std::string&) override { throw std::bad_alloc(); }
    std::uint32_t Execute(const std::string&, int) override { throw std::bad_alloc(); }
};

}  // namespace k4test
