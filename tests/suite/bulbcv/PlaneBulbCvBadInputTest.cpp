#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "suite/bulbcv/BulbEncoder.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "tests/suite/bulbcv/PageEndBytes.h"

namespace {

using k4suite::PlaneBulbCv;
using k4test::PageEndBytes;

constexpr std::uint32_t kRows = 5;
constexpr std::uint32_t kColumns = 21;
constexpr std::uint8_t kUntouched = 0xAB;

/// A call that works, until a test spoils one argument of it.
class BulbCall : public testing::TestWithParam<int> {
 protected:
    BulbCall() {
        std::memset(&header, kUntouched, sizeof header);
        // The conversion of each color at its lowest need is tried first.
        std::uint8_t picture[kRows * kColumns * 4];
        K4ImageHeader probe;
        EXPECT_EQ(PlaneBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), kRows, kColumns, color, &probe,
                                         picture, sizeof picture, depth),
                  1);
        needed = probe.bmiHeader.biSizeImage;
    }

    int Call() {
        return PlaneBulbCv().Bulb2DIB(data, bytes, rows, columns, color, head, out, room, depth);
    }

    void ExpectNothingWritten() const {
        K4ImageHeader untouched;
        std::memset(&untouched, kUntouched, sizeof untouched);
        EXPECT_EQ(std::memcmp(&header, &untouched, sizeof header), 0);
        EXPECT_TRUE(std::all_of(pixels.begin(), pixels.end(),
                                [](std::uint8_t byte) { return byte == kUntouched; }));
    }

    void ExpectFails() {
        EXPECT_EQ(Call(), 0);
        ExpectNothingWritten();
    }

    tag_K4_SIGN_COLOR color = static_cast<tag_K4_SIGN_COLOR>(GetParam());
    PageEndBytes bulbs{k4suite::BulbBytes(kRows, kColumns, k4suite::TechnologyOf(color))};
    PageEndBytes pixels{kRows * kColumns * 4, kUntouched};
    K4ImageHeader header;
    std::size_t needed = 0;

    const void* data = bulbs.data();
    std::uint64_t bytes = bulbs.size();
    std::uint32_t rows = kRows;
    std::uint32_t columns = kColumns;
    K4ImageHeader* head = &header;
    void* out = pixels.data();
    std::size_t room = pixels.size();
    int depth = GetParam() == 0 ? 1 : 8;
};

TEST_P(BulbCall, RoomForThePictureAloneIsEnough) {
    room = needed;
    out = pixels.end() - needed;
    EXPECT_EQ(Call(), 1);
}

TEST_P(BulbCall, OneByteOfRoomTooFewFails) {
    room = needed - 1;
    ExpectFails();
}

TEST_P(BulbCall, NoRoomFails) {
    room = 0;
    ExpectFails();
}

TEST_P(BulbCall, AFrameThatIsTooShortFails) {
    for (const std::uint64_t missing : {std::uint64_t{1}, bytes / 2, bytes}) {
        if (bulbs.size() == 0)
            continue;  // no bytes are needed where there are no lamps
        bytes = bulbs.size() - missing;
        ExpectFails();
    }
}

TEST_P(BulbCall, BytesBehindTheFrameDoNotMatter) {
    bytes = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(Call(), 1);
}

TEST_P(BulbCall, NoDataFailsWhereThereAreLamps) {
    data = nullptr;
    if (bulbs.size() > 0)
        return ExpectFails();
    EXPECT_EQ(Call(), 1);
    EXPECT_TRUE(std::all_of(pixels.begin(), pixels.begin() + needed,
                            [](std::uint8_t byte) { return byte == 0; }));
}

TEST_P(BulbCall, NoHeaderFails) {
    head = nullptr;
    ExpectFails();
}

TEST_P(BulbCall, NoPixelsFail) {
    out = nullptr;
    ExpectFails();
}

TEST_P(BulbCall, SizesThatNoSignHasFail) {
    constexpr std::uint32_t sizes[][2] = {
        {0, kColumns},     {kRows, 0},      {0, 0},
        {65536, kColumns}, {kRows, 65536},  {0xFFFFFFFF, 0xFFFFFFFF},
        {0x80000000, 1},   {1, 0x80000000},
    };
    for (const auto& size : sizes) {
        rows = size[0];
        columns = size[1];
        SCOPED_TRACE(std::to_string(rows) + " x " + std::to_string(columns));
        ExpectFails();
        bytes = std::numeric_limits<std::uint64_t>::max();
        room = std::numeric_limits<std::size_t>::max();
        ExpectFails();
        bytes = bulbs.size();
        room = pixels.size();
    }
}

TEST_P(BulbCall, TheLargestSignNeedsItsBytesAndItsRoom) {
    constexpr std::uint32_t sizes[][2] = {{65535, 65535}, {65535, kColumns}, {kRows, 65535}};
    for (const auto& size : sizes) {
        rows = size[0];
        columns = size[1];
        ExpectFails();
        bytes = std::numeric_limits<std::uint64_t>::max();
        ExpectFails();
        bytes = bulbs.size();
    }
}

TEST_P(BulbCall, OtherDepthsFail) {
    for (const int other : {0, 2, 4, 7, 9, 16, 24, 32, -1, -8}) {
        depth = other;
        SCOPED_TRACE(other);
        ExpectFails();
    }
}

INSTANTIATE_TEST_SUITE_P(Technologies, BulbCall, testing::Range(-1, 18));

}  // namespace
