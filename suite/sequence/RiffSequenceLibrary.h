#pragma once

#include <utility>

#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "suite/sequence/SequenceFile.h"

namespace k4suite {

/// Makes sequence file objects over files of this machine.
class RiffSequenceLibrary final : public k4cmn::SequenceLibrary {
 public:
    /// @param native where a path of the store lies; null takes paths as they are.
    explicit RiffSequenceLibrary(PathMapping native = nullptr) : m_native(std::move(native)) {}

    std::unique_ptr<CK4SequenceFile> Create() override {
        return std::make_unique<SequenceFile>(m_native);
    }

 private:
    const PathMapping m_native;
};

}  // namespace k4suite
