#include <gtest/gtest.h>

#include "suite/sequence/BulbPacking.h"
#include "suite/sequence/Deflate.h"
#include "suite/sequence/RunLength.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::SequenceDefect;
using k4test::Bytes;
using k4test::NoiseBytes;

namespace {

Bytes Words(std::initializer_list<std::pair<std::uint16_t, int>> runs) {
    Bytes bytes;
    for (const auto& [word, count] : runs)
        for (int i = 0; i < count; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(word));
            bytes.push_back(static_cast<std::uint8_t>(word >> 8));
        }
    return bytes;
}

TEST(RunLength, PacksAsTheFormatSays) {
    EXPECT_EQ(k4suite::PackRuns(Words({{0, 5}, {0x1234, 1}})), (Bytes{0x83, 0, 0, 0, 0x34, 0x12}));
    EXPECT_EQ(k4suite::PackRuns(Words({{7, 2}})), (Bytes{0x80, 7, 0}));
    EXPECT_EQ(k4suite::PackRuns(Words({{7, 129}})), (Bytes{0xFF, 7, 0}));
    EXPECT_EQ(k4suite::PackRuns(Words({{7, 130}})), (Bytes{0xFF, 7, 0, 0, 7, 0}));
    EXPECT_EQ(k4suite::PackRuns(Words({{1, 1}, {2, 2}, {3, 1}})),
              (Bytes{3, 1, 0, 2, 0, 2, 0, 3, 0}));
    EXPECT_EQ(k4suite::PackRuns({}), Bytes{});
}

TEST(RunLength, UnpacksWhatItPacked) {
    for (std::size_t words = 0; words < 400; ++words)
        for (const std::uint32_t variety : {1U, 2U, 3U, 256U}) {
            Bytes data = NoiseBytes(words * 2, static_cast<std::uint32_t>(words));
            for (std::uint8_t& byte : data)
                byte = static_cast<std::uint8_t>(byte % variety);
            const Bytes packed = k4suite::PackRuns(data);
            Bytes unpacked(data.size());
            SequenceDefect defect;
            ASSERT_TRUE(k4suite::UnpackRuns(packed, unpacked, defect)) << defect.words;
            ASSERT_EQ(unpacked, data);
            ASSERT_LE(data.size(), k4suite::LongestOfRuns(packed.size()));
            ASSERT_LE(packed.size(), data.size() + data.size() / 64 + 1);
        }
}

struct BadPacking {
    const char* name;
    Bytes packed;
    std::size_t bytes;
    std::uint64_t offset;
    const char* words;
};

class BadRuns : public testing::TestWithParam<BadPacking> {};

TEST_P(BadRuns, AreToldWithWordsAndOffset) {
    Bytes data(GetParam().bytes);
    SequenceDefect defect;
    EXPECT_FALSE(k4suite::UnpackRuns(GetParam().packed, data, defect));
    EXPECT_EQ(defect.words, GetParam().words);
    EXPECT_EQ(defect.offset, GetParam().offset);
}

INSTANTIATE_TEST_SUITE_P(
    RunLength, BadRuns,
    testing::Values(
        BadPacking{"CopyWithoutWord", {0, 1}, 2, 0, "The packed data ends inside of a packet."},
        BadPacking{
            "ControlAlone", {0x80, 1, 0, 0x80}, 8, 3, "The packed data ends inside of a packet."},
        BadPacking{"RunTooLong",
                   {0x81, 1, 0},
                   4,
                   0,
                   "The packed data holds more than the frame's bulb data."},
        BadPacking{"CopyTooLong",
                   {0, 1, 0, 0, 1, 0},
                   2,
                   3,
                   "The packed data holds more than the frame's bulb data."},
        BadPacking{"Nothing", {}, 2, 0, "The packed data holds less than the frame's bulb data."},
        BadPacking{"TooShort",
                   {0x80, 1, 0},
                   6,
                   3,
                   "The packed data holds less than the frame's bulb data."}),
    [](const auto& row) { return row.param.name; });

TEST(Deflate, UnpacksWhatItPacked) {
    for (const std::size_t bytes : {0U, 2U, 16U, 1000U, 65536U, 200000U}) {
        for (const std::uint32_t variety : {1U, 3U, 256U}) {
            Bytes data = NoiseBytes(bytes, 9);
            for (std::uint8_t& byte : data)
                byte = static_cast<std::uint8_t>(byte % variety);
            const Bytes packed = k4suite::PackDeflate(data);
            Bytes unpacked(data.size());
            SequenceDefect defect;
            ASSERT_TRUE(k4suite::UnpackDeflate(packed, unpacked, defect))
                << bytes << " " << defect.words;
            ASSERT_EQ(unpacked, data);
            ASSERT_LE(data.size(), k4suite::LongestOfDeflate(packed.size()));
        }
    }
}

TEST(Deflate, StreamsThatDontFitAreTold) {
    const Bytes packed = k4suite::PackDeflate(Bytes(100000, 7));
    SequenceDefect defect;
    Bytes fewer(99999);
    EXPECT_FALSE(k4suite::UnpackDeflate(packed, fewer, defect));
    EXPECT_EQ(defect.words, "The packed data holds more than the frame's bulb data.");
    Bytes more(100001);
    EXPECT_FALSE(k4suite::UnpackDeflate(packed, more, defect));
    EXPECT_EQ(defect.words, "The packed data holds less than the frame's bulb data.");
    EXPECT_EQ(defect.offset, packed.size());
    Bytes exact(100000);
    Bytes longer = packed;
    longer.push_back(0);
    EXPECT_FALSE(k4suite::UnpackDeflate(longer, exact, defect));
    EXPECT_EQ(defect.words, "There are bytes behind the packed data.");
    EXPECT_EQ(defect.offset, packed.size());
}

TEST(Deflate, EveryTruncationAndADamagedByteAreTold) {
    Bytes data = NoiseBytes(300, 3);
    const Bytes packed = k4suite::PackDeflate(data);
    for (std::size_t length = 0; length < packed.size(); ++length) {
        SequenceDefect defect;
        EXPECT_FALSE(k4suite::UnpackDeflate({packed.data(), length}, data, defect)) << length;
        EXPECT_EQ(defect.words, "The packed data ends inside of its zlib stream.") << length;
    }
    Bytes damaged = packed;
    damaged.back() ^= 1;
    SequenceDefect defect;
    EXPECT_FALSE(k4suite::UnpackDeflate(damaged, data, defect));
    EXPECT_EQ(defect.words, "The packed data isn't a sound zlib stream.");
}

TEST(BulbPacking, LevelsHaveTheirMethods) {
    EXPECT_EQ(k4suite::MethodOfLevel(K4_COMPRESS_NONE), K4_BULB_COMPRESS_NONE);
    EXPECT_EQ(k4suite::MethodOfLevel(K4_COMPRESS_LOW), K4_BULB_COMPRESS_RUNS);
    EXPECT_EQ(k4suite::MethodOfLevel(K4_COMPRESS_MEDIUM), K4_BULB_COMPRESS_DEFLATE);
}

TEST(BulbPacking, NumbersThatCantBeAreRefusedBeforeUnpacking) {
    SequenceDefect defect;
    EXPECT_FALSE(k4suite::CanUnpack(K4_BULB_COMPRESS_NONE, 15, 16, defect));
    EXPECT_EQ(defect.words, "The bulb data has 15 bytes where the sign needs 16.");
    EXPECT_FALSE(k4suite::CanUnpack(K4_BULB_COMPRESS_RUNS, 3, 1000, defect));
    EXPECT_EQ(defect.words, "The packed data of 3 bytes can't be bulb data of 1000 bytes.");
    EXPECT_FALSE(k4suite::CanUnpack(K4_BULB_COMPRESS_DEFLATE, 10, 10321, defect));
    EXPECT_TRUE(k4suite::CanUnpack(K4_BULB_COMPRESS_DEFLATE, 10, 10320, defect));
    EXPECT_FALSE(k4suite::CanUnpack(K4_BULB_COMPRESS_DEFLATE, 5000, 16, defect));
    EXPECT_FALSE(k4suite::CanUnpack(static_cast<tag_K4_BULB_COMPRESS_TYPE>(3), 16, 16, defect));
    EXPECT_EQ(defect.words, "The frame's compression method isn't known.");
}

}  // namespace
