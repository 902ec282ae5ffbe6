#pragma once

#include "suite/platform/FileOperationUi.h"

namespace k4suite {

/// For programs without a window: nothing is shown, and every question is answered No.
class SilentFileOperationUi final : public FileOperationUi {
 public:
    FileAnswer Confirm(const FileQuestion&) override { return FileAnswer::No; }
    void Begin(const std::string&) override {}
    bool Progress(std::uint64_t, std::uint64_t, const std::string&) override { return true; }
    void End() override {}
};

}  // namespace k4suite
