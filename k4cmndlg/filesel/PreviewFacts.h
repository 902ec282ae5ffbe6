#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The texts of a sequence's facts in the window "File Properties"; all empty without a sequence.
/// A plain value. Threads: as any value.
struct K4CMNCORE_EXPORT PreviewFacts {
    std::string frameSize;  ///< " %d x %d": rows, columns
    std::string pixelTech;  ///< the long name; empty for a value without one
    std::string colorTech;  ///< the short name; empty for a value without one
    std::string duration;   ///< " %4.2f Seconds"
    std::string frames;     ///< " %d"

    /// @param milliseconds with the sequences that it includes.
    static PreviewFacts Of(const tag_K4_SOS_FRM& start, int frameCount, std::uint64_t milliseconds);
};

/// A file's name and extension, out of its path.
K4CMNCORE_EXPORT std::string PreviewFileName(const std::string& path);
/// The window's title while it shows a file: "Properties for %s", with name and extension.
K4CMNCORE_EXPORT std::string PreviewTitle(const std::string& path);

}  // namespace k4cmn
