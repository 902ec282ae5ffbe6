#pragma once

#include "k4cmndlg/filestore/contracts/K4BulbCv.h"

namespace k4test {

/// Bulb data turned into pictures the plain way, lamp by lamp and bit by bit: what PlaneBulbCv must
/// give to the last bit, and what its speed is measured against. It trusts its arguments.
class PlainBulbCv final : public K4BulbCv {
 public:
    int Bulb2DIB(const void* bulbData, std::uint64_t bytesOfFrame, std::uint32_t rows,
                 std::uint32_t columns, tag_K4_SIGN_COLOR color, K4ImageHeader* imageHeader,
                 void* pixels, std::size_t sizeOfPixels, int depth) override;
};

}  // namespace k4test
