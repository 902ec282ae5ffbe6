#include <algorithm>

#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/lamps/Shades.h"
#include "tests/suite/signservice/EngineSequenceFixture.h"

// Real sequences on signs: their frames, times and pictures.

namespace {

using k4test::DibPicture;
using k4test::DibPixel;
using k4test::NoiseBulbs;
using std::chrono::milliseconds;
using EngineSequence = k4test::EngineSequenceFixture;

constexpr const char* kSigns[] = {"Main", "Small", "Strip", "Quad", "Disc", "Packed"};

/// What a client makes of bulb data.
DibPicture Converted(const std::vector<std::uint8_t>& bulbs, const k4cmn::SignSettings& sign) {
    k4suite::PlaneBulbCv converter(sign.pixel);
    K4ImageHeader header;
    std::vector<std::uint8_t> pixels(std::size_t{sign.rows} * sign.columns * 4 + 4 * sign.rows);
    EXPECT_EQ(converter.Bulb2DIB(bulbs.data(), bulbs.size(), sign.rows, sign.columns, sign.color,
                                 &header, pixels.data(), pixels.size(), 8),
              1);
    const std::uint32_t bits = header.bmiHeader.biBitCount;
    const std::size_t lineBytes = (std::size_t{sign.columns} * bits + 31) / 32 * 4;
    DibPicture picture{header.bmiHeader.biWidth, header.bmiHeader.biHeight, {}};
    for (std::uint32_t row = 0; row < sign.rows; ++row)
        for (std::uint32_t column = 0; column < sign.columns; ++column) {
            const std::uint8_t* at = pixels.data() + row * lineBytes + column * bits / 8;
            const RGBQUAD color =
                bits == 8 ? header.bmiColors[*at] : RGBQUAD{at[0], at[1], at[2], 0};
            picture.pixels.push_back({color.rgbRed, color.rgbGreen, color.rgbBlue});
        }
    return picture;
}

TEST_F(EngineSequence, MadeForTheSignShowsItsBulbDataToTheBitAndThePictureOfIt) {
    for (const char* sign : kSigns)
        for (const tag_K4_COMPRESS_TYPE level :
             {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM}) {
            const k4suite::SequenceFacts facts = Facts(sign, level);
            const std::string file = Make(
                "own.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 3, 5); });
            ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP, 0, sign), 0) << sign;
            for (std::uint32_t frame = 0; frame < 3; ++frame) {
                const Bytes bulbs = NoiseBulbs(facts, 5000 + frame);
                EXPECT_EQ(rig.Bulbs(sign), bulbs) << sign << " " << frame;
                EXPECT_EQ(rig.Picture(sign), Converted(bulbs, Settings(sign))) << sign;
                rig.rpc->k4ssSingleStepFrame(sign, 1);
            }
        }
}

TEST_F(EngineSequence, BitsThatNoLampHasAreGivenAsTheyAre) {
    const k4suite::SequenceFacts facts = Facts("Disc");
    const Bytes all(2 * 2 * 8, 0xFF);
    const std::string file = Make("all.SQ4", facts, [&](Writer& writer) {
        writer.AddGraphic(k4cmn::kGraphicFrame, 100, all);
    });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, "Disc"), 0);
    EXPECT_EQ(rig.Bulbs("Disc"), all);
    EXPECT_EQ(rig.Picture("Disc"), Converted(all, Settings("Disc")));
}

TEST_F(EngineSequence, APixelTechnologyOfItsOwnDoesntMakeItAnothersSequence) {
    k4suite::SequenceFacts facts = Facts("Small");
    facts.pixel = K4_PIXEL_TECH_LED;
    const std::string file =
        Make("led.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, "Small"), 0);
    EXPECT_EQ(rig.Bulbs("Small"), NoiseBulbs(facts, 5000));
    EXPECT_EQ(rig.Picture("Small"), Converted(NoiseBulbs(facts, 5000), Settings("Small")));
}

TEST_F(EngineSequence, DimmingLowersAnExactFrameAsAnyPicture) {
    for (const char* sign : kSigns) {
        const k4suite::SequenceFacts facts = Facts(sign);
        const std::string file =
            Make("own.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
        ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, sign), 0);
        const DibPicture bright = rig.Picture(sign);
        const Bytes bulbs = rig.Bulbs(sign);
        ASSERT_EQ(rig.rpc->k4ssSetDimming(sign, K4_SIGN_DIM_MANUAL, 119), 0);
        const DibPicture dimmed = rig.Picture(sign);
        const bool isDisc = std::string(sign) == "Disc";
        for (std::size_t lamp = 0; lamp < bright.pixels.size(); ++lamp) {
            const int before = bright.pixels[lamp].red;
            ASSERT_NEAR(dimmed.pixels[lamp].red, isDisc ? before : before / 2.0, 1) << sign;
            ASSERT_EQ(dimmed.pixels[lamp].red > 0, before > 0) << sign;
        }
        EXPECT_EQ(rig.Bulbs(sign) == bulbs, isDisc || Settings(sign).color == K4_SIGN_COLOR_TRI3)
            << sign << ": a lamp of one bit that is lit stays lit";
        ASSERT_EQ(rig.rpc->k4ssSetDimming(sign, K4_SIGN_DIM_MANUAL, 255), 0);
        EXPECT_EQ(rig.Bulbs(sign), bulbs) << sign;
    }
}

TEST_F(EngineSequence, LampsThatNoWindowCoversKeepTheirBits) {
    for (const char* sign : {"Quad", "Main", "Small"}) {
        const k4suite::SequenceFacts facts = Facts(sign);
        const std::string file =
            Make("own.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
        ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, sign), 0);
        ASSERT_EQ(rig.rpc->k4ssBlankSign("Disc"), 0);
        std::uint32_t window = 1;
        while (rig.Window(window, sign)[0] != "Disc")
            ++window;
        // A dark field of 7 by 17, the most of which sticks out at the upper left.
        ASSERT_EQ(rig.rpc->k4ssWindowMove(sign, window, -4, -12), 0);
        const Bytes before = rig.Bulbs(sign);
        ASSERT_EQ(rig.rpc->k4ssWindowEnable(sign, window, 1), 0);
        const Bytes after = rig.Bulbs(sign);
        ASSERT_EQ(after.size(), before.size());
        const std::size_t lineBytes = 2 * ((facts.columns + 15U) / 16U);
        const std::size_t lines = facts.rows;
        int cleared = 0;
        for (std::size_t at = 0; at < before.size(); ++at) {
            const std::size_t row = at / lineBytes % lines;
            // Rows 0 to 2 and columns 0 to 4 are covered; with cells, 0 to 3 and 0 to 5.
            const std::size_t rows = facts.color == K4_SIGN_COLOR_QUAD256 ? 4 : 3;
            const int covered = facts.color == K4_SIGN_COLOR_QUAD256 ? 0xFC : 0xF8;
            const bool isLeft = at % lineBytes == 1;
            const int kept = row < rows && isLeft ? ~covered & 0xFF : 0xFF;
            ASSERT_EQ(after[at] & kept, before[at] & kept) << sign << " " << at;
            cleared += (before[at] & ~after[at]) != 0;
        }
        EXPECT_GT(cleared, 0) << sign;
        ASSERT_EQ(rig.rpc->k4ssWindowEnable(sign, window, 0), 0);
        EXPECT_EQ(rig.Bulbs(sign), before) << sign;
    }
}

TEST_F(EngineSequence, AWindowShowsTheExactPictureOfItsSign) {
    const k4suite::SequenceFacts facts = Facts("Small");
    const std::string file =
        Make("own.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, "Small"), 0);
    ASSERT_EQ(rig.rpc->k4ssWindowMove("Main", 1, 8, 16), 0);
    ASSERT_EQ(rig.rpc->k4ssWindowEnable("Main", 1, 1), 0);
    const DibPicture main = rig.Picture();
    const DibPicture small = Converted(NoiseBulbs(facts, 5000), Settings("Small"));
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 32; ++column)
            ASSERT_EQ(main.At(row + 8, column + 16), small.At(row, column));
}

TEST_F(EngineSequence, OfAnotherSizeStandsLampForLampInTheMiddle) {
    const k4suite::SequenceFacts facts = Facts("Small");  // 16 by 32, of one color
    const std::string file =
        Make("small.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);  // on 32 by 64
    const DibPicture shown = rig.Picture();
    const DibPicture own = Converted(NoiseBulbs(facts, 5000), Settings("Small"));
    for (int row = 0; row < 32; ++row)
        for (int column = 0; column < 64; ++column) {
            const bool inside = row >= 8 && row < 24 && column >= 16 && column < 48;
            ASSERT_EQ(shown.At(row, column), inside ? own.At(row - 8, column - 16) : DibPixel())
                << row << " " << column;
        }
    EXPECT_EQ(rig.Bulbs().size(), k4cmn::BytesOfFrame(32, 64, K4_SIGN_COLOR_RGB16M));
}

TEST_F(EngineSequence, LargerThanTheSignIsMadeSmaller) {
    ASSERT_EQ(rig.Play("S:\\show.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0, "Packed"), 0);
    // 32 by 64 become 9 by 18 on a sign of 9 by 20; their place is even.
    const DibPicture shown = rig.Picture("Packed");
    ASSERT_EQ(rig.Play("S:\\show.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    const k4suite::LampTechnology technology = k4suite::TechnologyOf(Settings("Packed").color);
    const DibPicture whole = rig.Picture();
    const auto nearest = [&](int light) {
        const auto shade = static_cast<std::uint8_t>((light * 31 + 127) / 255);
        return static_cast<int>(k4suite::LightOfShade(shade, technology));
    };
    for (int row = 0; row < 9; ++row)
        for (int column = 0; column < 20; ++column) {
            if (column >= 18) {
                ASSERT_EQ(shown.At(row, column), DibPixel());
                continue;
            }
            const DibPixel from = whole.At(row * 32 / 9, column * 64 / 18);
            ASSERT_EQ(shown.At(row, column),
                      (DibPixel{nearest(from.red), nearest(from.green), nearest(from.blue)}))
                << row << " " << column;
        }
}

TEST_F(EngineSequence, OfAnotherTechnologyComesAsNearAsTheLampsCan) {
    k4suite::SequenceFacts facts = Facts("Main");
    facts.color = K4_SIGN_COLOR_RGB64;
    const std::string file =
        Make("coarse.SQ4", facts, [&](Writer& writer) { k4test::AddNoise(writer, facts, 1, 5); });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    k4cmn::SignSettings made = Settings();
    made.color = facts.color;
    EXPECT_EQ(rig.Picture(), Converted(NoiseBulbs(facts, 5000), made));
}

TEST_F(EngineSequence, GraphicDataAndTextFramesAreShownAndOtherChunksPassedOver) {
    const k4suite::SequenceFacts facts = Facts();
    const std::string file = Make("kinds.SQ4", facts, [&](Writer& writer) {
        writer.AddChunk(k4cmn::FourCharacterCode("abc "), Bytes(33));
        writer.AddGraphic(k4cmn::kGraphicFrame, 100, Frame(1));
        writer.AddGraphic(k4cmn::kDataFrame, 100, Frame(2));
        writer.AddChunk(k4cmn::FourCharacterCode("GRP "), Bytes(33));
        writer.AddGraphic(k4cmn::kTextFrame, 100, Frame(3));
    });
    EXPECT_EQ(SeedsShown(file, {1, 2, 3}), (std::vector<std::uint32_t>{1, 2, 3}));
}

TEST_F(EngineSequence, DwellTimesAreThoseOfTheFileAndAMillisecondAtLeast) {
    const k4suite::SequenceFacts facts = Facts();
    constexpr std::uint32_t dwells[] = {250, 0, 40, 4294967295};
    const std::string file = Make("times.SQ4", facts, [&](Writer& writer) {
        for (const std::uint32_t dwell : dwells)
            writer.AddGraphic(k4cmn::kGraphicFrame, dwell, Frame(dwell));
    });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    const auto shows = [&] {
        std::uint32_t frame = 0, count = 0, dwell = 0, times = 0;
        EXPECT_EQ(rig.rpc->k4ssGetFrameStatus("Main", nullptr, &frame, &count, nullptr, nullptr,
                                              &dwell, &times),
                  0);
        EXPECT_EQ(count, 4U);
        EXPECT_EQ(dwell, std::max(1U, dwells[frame - 1]));
        EXPECT_EQ(rig.Bulbs(), Frame(dwells[frame - 1])) << frame;
        return std::to_string(frame) + " after " + std::to_string(times);
    };
    EXPECT_EQ(shows(), "1 after 0");
    rig.clock.Advance(milliseconds(249));
    EXPECT_EQ(shows(), "1 after 0");
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(shows(), "2 after 0");
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(shows(), "3 after 0");
    rig.clock.Advance(milliseconds(40));
    EXPECT_EQ(shows(), "4 after 0");
    rig.clock.Advance(milliseconds(4294967294));
    EXPECT_EQ(shows(), "4 after 0");
    rig.clock.Advance(milliseconds(1));
    EXPECT_EQ(shows(), "1 after 1");
}

TEST_F(EngineSequence, ManyTimesALongSequenceNeverEnd) {
    const k4suite::SequenceFacts facts = Facts();
    const std::string file = Make("long.SQ4", facts, [&](Writer& writer) {
        for (int frame = 0; frame < 20; ++frame)
            writer.AddGraphic(k4cmn::kGraphicFrame, 0xFFFFFFFF, Frame(1));
    });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_NUM_TIMES, 0xFFFFFFFF), 0);
    rig.clock.Advance(std::chrono::hours(24 * 365 * 1000));
    EXPECT_EQ(rig.Status().state, "Playing");
    EXPECT_EQ(rig.Status().sequence, file);
}

TEST_F(EngineSequence, OneFrameStandsWithoutMovingTheFlag) {
    const std::string file = MakeOf("one.SQ4", {1});
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    const std::uint32_t flag = rig.ChangeFlag();
    rig.clock.Advance(std::chrono::minutes(1));
    EXPECT_EQ(rig.ChangeFlag(), flag);
    EXPECT_EQ(rig.Status().frame, 1U);
    EXPECT_EQ(rig.Bulbs(), Frame(1));
}

TEST_F(EngineSequence, SelFrameAndStepsGoByTheFramesOfTheFile) {
    const std::string file = MakeOf("five.SQ4", {1, 2, 3, 4, 5}, K4_COMPRESS_MEDIUM);
    EXPECT_NE(rig.Play(file, K4_PLAY_SEQ_SEL_FRAME, 0), 0);
    EXPECT_NE(rig.Play(file, K4_PLAY_SEQ_SEL_FRAME, 6), 0);
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_SEL_FRAME, 5), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(5));
    ASSERT_EQ(rig.rpc->k4ssSelectFrame("Main", 3), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(3));
    ASSERT_EQ(rig.rpc->k4ssSingleStepFrame("Main", -3), 0);
    EXPECT_EQ(rig.Bulbs(), Frame(5));
    EXPECT_NE(rig.rpc->k4ssSelectFrame("Main", 6), 0);
}

TEST_F(EngineSequence, AColorWithoutLampsPlaysInTheDark) {
    k4suite::SequenceFacts facts = Facts();
    facts.color = static_cast<tag_K4_SIGN_COLOR>(15);
    const std::string file = Make("none.SQ4", facts, [&](Writer& writer) {
        writer.AddGraphic(k4cmn::kGraphicFrame, 100, {});
    });
    ASSERT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS), 0);
    EXPECT_EQ(rig.Bulbs(), Bytes(rig.Bulbs().size()));
}

TEST(EngineColor15, ASignWithoutLampsShowsItsSequenceToo) {
    k4suite::MachineSettings settings = k4test::RigSettings();
    settings.services[0].signs[1].settings.color = static_cast<tag_K4_SIGN_COLOR>(15);
    k4test::EngineRig rig(settings);
    const k4suite::SequenceFacts facts = k4test::FactsFor(settings.services[0].signs[1].settings);
    k4suite::SequenceWriter writer((rig.store.Path() / "none.SQ4").string(), facts);
    ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 100, {}) && writer.Finish());
    ASSERT_EQ(rig.Play("S:\\none.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0, "Small"), 0);
    EXPECT_TRUE(rig.Bulbs("Small").empty());
    for (const DibPixel& pixel : rig.Picture("Small").pixels)
        ASSERT_EQ(pixel, DibPixel());
}

}  // namespace
