#pragma once

#include <cstdint>

#include "k4cmndlg/k4cmncore_export.h"

/// One chunk of a sequence file.
class K4CMNCORE_EXPORT CK4RiffChunk {
 public:
    virtual ~CK4RiffChunk();

    /// The chunk's four-character code as a number, its first character in the lowest byte:
    /// k4cmn::kGraphicFrame and the like.
    virtual std::uint32_t Type() const = 0;
};
