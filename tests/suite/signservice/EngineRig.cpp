#include "tests/suite/signservice/EngineRig.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>

#include "tests/suite/signservice/SequenceFiles.h"

namespace k4test {

using k4suite::SignSetup;

namespace {

SignSetup SignOf(const char* name, std::uint32_t rows, std::uint32_t columns,
                 tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    SignSetup sign;
    sign.name = name;
    sign.settings.rows = rows;
    sign.settings.columns = columns;
    sign.settings.color = color;
    sign.settings.pixel = pixel;
    return sign;
}

std::uint32_t WordAt(const std::vector<char>& bytes, std::size_t at) {
    std::uint32_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return word;
}

/// A sequence file for "Main", made once.
const std::string& SequenceForMain(std::uint32_t seed) {
    static std::map<std::uint32_t, std::string> made;
    std::string& content = made[seed];
    if (content.empty()) {
        const TempFolder folder;
        WriteSequence(folder / "made.SQ4", RigSettings().services[0].signs[0].settings, 40, seed);
        content = folder.Read("made.SQ4");
    }
    return content;
}

std::uint32_t NumberOf(const std::string& text) {
    return static_cast<std::uint32_t>(std::stoul(text));
}

}  // namespace

k4suite::MachineSettings RigSettings() {
    k4suite::MachineSettings settings;
    settings.services = {
        {"Local",
         {},
         {},
         {SignOf("Main", 32, 64, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED),
          SignOf("Small", 16, 32, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_INCAND),
          SignOf("Strip", 8, 32, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED),
          SignOf("Quad", 16, 16, K4_SIGN_COLOR_QUAD256, K4_PIXEL_TECH_LED),
          SignOf("Disc", 7, 17, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_REFLECT),
          SignOf("Packed", 9, 20, K4_SIGN_COLOR_RGB32KB, K4_PIXEL_TECH_LED)}},
        {"North",
         {},
         {},
         {SignOf("Gate", 16, 64, K4_SIGN_COLOR_RGB64, K4_PIXEL_TECH_LED),
          SignOf("Gate 2", 16, 64, K4_SIGN_COLOR_RGB64, K4_PIXEL_TECH_LED)}},
        {"Far", {}, {}, {SignOf("Alone", 16, 64, K4_SIGN_COLOR_MONO64, K4_PIXEL_TECH_INCAND)}},
    };
    return settings;
}

std::vector<std::string> SplitAt(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char byte : text) {
        if (byte == separator)
            parts.emplace_back();
        else
            parts.back() += byte;
    }
    return parts;
}

EngineRig::EngineRig(k4suite::MachineSettings machineSettings)
    : settings(std::move(machineSettings)) {
    // Hours are hours of this zone.
    setenv("TZ", "UTC", 1);
    tzset();
    store.Write("show.SQ4", SequenceForMain(1));
    store.Write("film.SQ4", SequenceForMain(2));
    store.Write("day.SD4", kDaySchedule);
    Restart();
}

void EngineRig::Restart() {
    rpc.reset();
    engine.reset();
    engine = std::make_unique<k4suite::SignEngine>(settings, state.Path(), clock, store);
    rpc = std::make_unique<k4suite::EngineRpc>(*engine);
    rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr);
}

void EngineRig::Expect(bool holds) {
    EXPECT_TRUE(holds);
}

StatusReply EngineRig::Status(const std::string& sign) {
    const std::vector<std::string> fields =
        SplitAt(Text(&k4suite::EngineRpc::k4ssGetStatus, sign), '\t');
    if (fields.size() != 6) {
        ADD_FAILURE() << fields.size() << " fields";
        return {};
    }
    return {fields[0],           fields[1],           NumberOf(fields[2]),
            NumberOf(fields[3]), NumberOf(fields[4]), NumberOf(fields[5])};
}

std::vector<std::string> EngineRig::Config(const std::string& sign) {
    std::vector<std::string> fields = SplitAt(Text(&k4suite::EngineRpc::k4ssGetConfig, sign), '\t');
    EXPECT_EQ(fields.size(), 9U);
    fields.resize(9);
    return fields;
}

std::vector<std::string> EngineRig::Window(std::size_t window, const std::string& sign) {
    const std::vector<std::string> lines =
        SplitAt(Text(&k4suite::EngineRpc::k4ssListWindows, sign), '\n');
    EXPECT_EQ(lines.size(), 17U) << "16 lines, each ended by a newline";
    std::vector<std::string> fields = SplitAt(lines.at(window - 1), '\t');
    EXPECT_EQ(fields.size(), 4U);
    fields.resize(4);
    return fields;
}

std::string EngineRig::Queue(const std::string& sign) {
    return Text(&k4suite::EngineRpc::k4ssGetQueue, sign);
}

std::uint32_t EngineRig::ChangeFlag(const std::string& sign) {
    std::uint32_t flag = 0;
    EXPECT_EQ(rpc->k4ssGetChangeFlag(sign.c_str(), &flag), 0);
    return flag;
}

std::uint32_t EngineRig::ScheduleFlag(const std::string& sign) {
    std::uint32_t flag = 0;
    EXPECT_EQ(rpc->k4ssGetSchedChangeFlag(sign.c_str(), &flag), 0);
    return flag;
}

std::uint32_t EngineRig::DefaultFlag(const std::string& sign) {
    std::uint32_t flag = 2;
    EXPECT_EQ(rpc->k4ssGetDefaultSeqFlag(sign.c_str(), &flag), 0);
    return flag;
}

DibPicture EngineRig::Picture(const std::string& sign) {
    std::uint32_t length = 0;
    EXPECT_NE(rpc->k4ssGetDIB(sign.c_str(), nullptr, 0, &length), 0);
    std::vector<char> bytes(length);
    EXPECT_EQ(rpc->k4ssGetDIB(sign.c_str(), bytes.data(), length, &length), 0);
    EXPECT_EQ(length, bytes.size());
    if (bytes.size() < 40) {
        ADD_FAILURE() << "no header";
        return {};
    }
    EXPECT_EQ(WordAt(bytes, 0), 40U);
    EXPECT_EQ(WordAt(bytes, 12), 1U | 32U << 16);
    EXPECT_EQ(WordAt(bytes, 16), 0U) << "not compressed";
    EXPECT_EQ(WordAt(bytes, 20), bytes.size() - 40);
    DibPicture picture;
    picture.width = static_cast<std::int32_t>(WordAt(bytes, 4));
    picture.height = static_cast<std::int32_t>(WordAt(bytes, 8));
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    for (std::size_t at = 40; at < bytes.size(); at += 4) {
        picture.pixels.push_back({byte(at + 2), byte(at + 1), byte(at)});
        EXPECT_EQ(byte(at + 3), 0);
    }
    return picture;
}

std::vector<std::uint8_t> EngineRig::Bulbs(const std::string& sign) {
    std::uint32_t bytes = 0;
    std::uint32_t planes = 0;
    rpc->k4ssGetBulb(sign.c_str(), nullptr, 0, &bytes, &planes);
    std::vector<std::uint8_t> bulbs(bytes);
    EXPECT_EQ(rpc->k4ssGetBulb(sign.c_str(), bulbs.data(), bytes, &bytes, &planes), 0);
    EXPECT_EQ(bytes, bulbs.size());
    return bulbs;
}

std::int32_t EngineRig::Play(const std::string& file, std::int32_t mode, std::uint32_t param,
                             const std::string& sign) {
    return rpc->k4ssPlaySequence(sign.c_str(), file.c_str(),
                                 static_cast<tag_K4_PLAY_SEQ_MODE>(mode), param);
}

void EngineRig::KeepBusy() {
    const char* const main = "Main";
    Expect(rpc->k4ssSetDimming(main, K4_SIGN_DIM_MANUAL, 77) == 0);
    Expect(rpc->k4ssSetDimming(main, K4_SIGN_DIM_PHOTOCELL, -33) == 0);
    Expect(rpc->k4ssWindowEnable(main, 2, 1) == 0);
    Expect(rpc->k4ssWindowMove(main, 2, -5, 40) == 0);
    Expect(rpc->k4ssWindowMove(main, 16, 3, 8) == 0);
    Expect(rpc->k4ssQueueSequence(main, "S:\\show.SQ4", K4_PLAY_SEQ_NUM_TIMES, 0xFFFFFFFF) == 0);
    Expect(rpc->k4ssQueueWindowEnable(main, 2, 0) == 0);
    Expect(rpc->k4ssQueueWindowMove(main, 3, -1, -2) == 0);
    Expect(rpc->k4ssSetDefaultSequence(main, "S:\\film.SQ4", K4_PLAY_SEQ_NUM_TIMES, 12) == 0);
    Expect(rpc->k4ssRunSchedule(main, "S:\\day.SD4", 0) == 0);
    Expect(Play("S:\\show.SQ4", K4_PLAY_SEQ_NUM_TIMES, 3) == 0);
}

}  // namespace k4test
