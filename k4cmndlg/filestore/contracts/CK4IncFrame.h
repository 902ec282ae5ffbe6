#pragma once

#include <cstdint>

#include "k4cmndlg/filestore/contracts/CK4Frame.h"

/// A frame that stands for other sequences. Fields count from 0.
class K4CMNCORE_EXPORT CK4IncFrame : public CK4Frame {
 public:
    ~CK4IncFrame() override;

    virtual std::uint16_t GetFieldCount() const = 0;
    /// @return not 0 for a field that is played; 0 for one that isn't, or isn't there.
    virtual int GetFieldStatus(int field) const = 0;
    /// The path of a field, as it stands in the file: absolute, or from the file's own place.
    /// @return the frame's own text, or null if there is no such field.
    virtual const char* GetPtrToFieldPath(int field) const = 0;
};
