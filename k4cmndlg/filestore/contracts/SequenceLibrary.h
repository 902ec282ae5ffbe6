#pragma once

#include <memory>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What makes sequence file objects. With none installed, objects are made whose Open() fails with
/// the words "Sequence files are not available.".
/// Threads: any.
class K4CMNCORE_EXPORT SequenceLibrary {
 public:
    virtual ~SequenceLibrary();

    /// A sequence file object with no file open. Never null. It goes before the library does.
    virtual std::unique_ptr<CK4SequenceFile> Create() = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, SequenceLibrary)
