#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What a person changes of a sequence in the window "File Properties".
/// A plain value. Threads: as any value.
struct K4CMNCORE_EXPORT PreviewEdits {
    std::string keywords;
    std::string notes;
    std::int32_t thumbnailFrame = 0;  ///< from 1; 0: none
    int compression = 0;              ///< index into kCompressionLevels
    bool compressionChanged = false;  ///< whether SaveTo() stores it

    /// What an open sequence has. A thumbnail frame of 0 becomes 1, and a compression level that
    /// has no name counts as "Medium".
    static PreviewEdits Of(CK4SequenceFile& file);

    /// Puts all of it into a sequence that is open for writing, and saves that.
    ///
    /// Of each text the first kMaxSequenceText characters count. Keywords are normalised; without
    /// any the file keeps those that it has. Notes are stored only where the text of the keywords
    /// isn't empty: this is meant so. A thumbnail frame that the sequence hasn't got becomes its
    /// last one, and one below 0 none: 16 bits have no room for all that can be typed.
    ///
    /// Afterwards the members are what was stored: the keywords, unless there are none, the notes,
    /// if they were stored, and the thumbnail frame.
    /// @return 1, or 0 if the file couldn't be saved; it has the words.
    int SaveTo(CK4SequenceFile& file);
};

}  // namespace k4cmn
