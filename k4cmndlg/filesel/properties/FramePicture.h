#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What came of the wish to show a frame.
enum class FrameResult : std::uint8_t {
    NoFrame,     ///< there is no such frame; nothing has changed
    NonGraphic,  ///< the frame has no picture
    Unreadable,  ///< it has one that can't be read; the words say why
    Picture,     ///< here it is
};

/// One frame of a sequence as a device-independent bitmap.
/// A plain value. Threads: as any value.
struct K4CMNCORE_EXPORT FramePicture {
    K4ImageHeader header{};            ///< a negative height: the first line is the top one
    std::vector<std::uint8_t> pixels;  ///< the lines, each filled up to a multiple of 4 bytes
    std::string words;                 ///< why it couldn't be read

    /// Whether there is a picture.
    bool IsValid() const { return header.bmiHeader.biWidth > 0; }
    /// Drops the picture and the words.
    void Clear();

    /// Converts a frame of an open sequence through K4BulbCv: at a depth of 1 for the color value
    /// 0, and of 8 for all others.
    /// Where the result is NoFrame the picture stays as it was; with any other but Picture it is
    /// cleared.
    /// @param number         of the frame, from 1.
    /// @param textIsGraphic  whether a "txt " frame has a picture, as "grp " and "dat " have.
    FrameResult Convert(CK4SequenceFile& file, int number, bool textIsGraphic);
};

}  // namespace k4cmn
