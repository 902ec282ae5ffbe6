#pragma once

#include <QImage>
#include <cstdint>
#include <span>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/bulbcv/PlaneBulbCv.h"

namespace k4ctl {

/// Turns the frames of one sequence into pictures, a pixel a lamp: with a table of colors, the
/// first of which is black, where the technology shows 256 colors or fewer, and of 32 bits a pixel
/// otherwise.
class FramePictures {
 public:
    explicit FramePictures(const tag_K4_SOS_FRM& start);

    /// @param bulbs unpacked, of the sequence's size.
    /// @return a null picture where there is no memory for it.
    QImage Of(std::span<const std::uint8_t> bulbs);

 private:
    const tag_K4_SOS_FRM m_start;
    k4suite::PlaneBulbCv m_conversion;
    std::vector<std::uint8_t> m_pixels;
};

/// Makes each pixel a square of so many, so that lamps can be told apart: from kGapScale on with a
/// black gap between them.
/// @param picture of a table of colors that begins with black, or of 32 bits a pixel.
QImage Enlarged(const QImage& picture, int scale);

inline constexpr int kGapScale = 4;

}  // namespace k4ctl
