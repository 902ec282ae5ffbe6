#pragma once

#include "k4cmndlg/filestore/contracts/CK4RiffChunk.h"

/// One frame of a sequence. By its type it is a CK4GphFrame ("grp ", "dat ", "txt ") or a
/// CK4IncFrame ("inc ").
class K4CMNCORE_EXPORT CK4Frame : public CK4RiffChunk {
 public:
    ~CK4Frame() override;
};
