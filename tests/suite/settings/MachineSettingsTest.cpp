#include "suite/settings/MachineSettings.h"

#include <gtest/gtest.h>

#include <string_view>

#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::MachineSettings;
using k4suite::SignSetup;
using Texts = std::vector<std::string>;

class MachineFile : public testing::Test {
 protected:
    /// Reads the machine's part from a content.
    int Read(const std::string& content) {
        folder.Write("settings/machine.ini", content);
        return ReadMachineSettings(home, machine, &problem);
    }
    /// Reads one sign from its lines. @return whether it was taken.
    bool TakesSign(const std::string& lines) {
        EXPECT_EQ(Read("[Service1]\nName=Local\n" + lines), 1);
        EXPECT_EQ(machine.services.size(), 1u);
        return !machine.services.empty() && machine.services[0].signs.size() == 1;
    }

    k4test::TempFolder folder;
    DataHome home{folder.Path()};
    MachineSettings machine;
    std::string problem = "old";
};

void ExpectSame(const SignSetup& one, const SignSetup& other) {
    EXPECT_EQ(one.name, other.name);
    EXPECT_EQ(one.settings.rows, other.settings.rows);
    EXPECT_EQ(one.settings.columns, other.settings.columns);
    EXPECT_EQ(one.settings.color, other.settings.color);
    EXPECT_EQ(one.settings.pixel, other.settings.pixel);
    EXPECT_EQ(one.settings.texts, other.settings.texts);
    EXPECT_EQ(one.settings.numbers, other.settings.numbers);
    EXPECT_EQ(one.settings.orientation, other.settings.orientation);
}

TEST_F(MachineFile, WhatIsWrittenIsReadBack) {
    MachineSettings written;
    written.services.push_back({"Local", "", {"A:", "\\\\STORE\\SIGNS", "/srv/store, new"}, {}});
    written.services.push_back({"Gr\u00fcn/Tor", "Line 1", {}, {}});
    for (int color = 0; color <= 15; ++color) {
        SignSetup sign;
        sign.name = "Sign " + std::to_string(color);
        sign.settings = {7,  80, static_cast<tag_K4_SIGN_COLOR>(color), K4_PIXEL_TECH_REFLECT,
                         {}, {}, K4_OUTPUT_ORIENTATION_ROTATED_MIRRORED};
        sign.settings.texts.assign(static_cast<std::size_t>(color) * 2, "a;b=\"c\"");
        sign.settings.numbers.assign(static_cast<std::size_t>(color) * 2, 0xFFFFFFFF);
        written.services[0].signs.push_back(sign);
    }
    EXPECT_EQ(WriteMachineSettings(home, written), 1);
    EXPECT_EQ(ReadMachineSettings(home, machine, &problem), 1);
    EXPECT_EQ(problem, "");
    ASSERT_EQ(machine.services.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(machine.services[i].name, written.services[i].name);
        EXPECT_EQ(machine.services[i].phoneBookEntry, written.services[i].phoneBookEntry);
        EXPECT_EQ(machine.services[i].servers, written.services[i].servers);
        ASSERT_EQ(machine.services[i].signs.size(), written.services[i].signs.size());
        for (std::size_t s = 0; s < written.services[i].signs.size(); ++s)
            ExpectSame(machine.services[i].signs[s], written.services[i].signs[s]);
    }
}

TEST_F(MachineFile, WritingReplacesTheWholeContent) {
    MachineSettings two;
    two.services = {{"Local", "", {"A:"}, {}}, {"North", "", {}, {}}};
    ASSERT_EQ(WriteMachineSettings(home, two), 1);
    two.services.pop_back();
    ASSERT_EQ(WriteMachineSettings(home, two), 1);
    EXPECT_EQ(ReadMachineSettings(home, machine, nullptr), 1);
    EXPECT_EQ(machine.services.size(), 1u);
    EXPECT_EQ(folder.Read("settings/machine.ini"), "[Service1]\nName=Local\nServer1=A:\n");
}

TEST_F(MachineFile, HandWrittenFileWithGapsIsReadInTheOrderOfItsNumbers) {
    EXPECT_EQ(Read("[Service10]\nName=Ten\n[Service2]\nName=Two\nServer3=C:\nServer1=A:\n"
                   "Server01=no\nServerX=no\n"
                   "Sign5\\Name=Five\nSign5\\Rows=16\nSign5\\Columns=48\nSign5\\Color=tri3\n"
                   "Sign5\\Pixel=led\n"
                   "Sign4\\Name=Four\nSign4\\Rows=7\nSign4\\Columns=16\nSign4\\Color=0\n"
                   "Sign4\\Pixel=2\n"
                   "[Other]\nName=x\n"),
              1);
    EXPECT_EQ(problem, "");
    ASSERT_EQ(machine.services.size(), 2u);
    EXPECT_EQ(machine.services[0].name, "Two");
    EXPECT_EQ(machine.services[0].servers, (Texts{"A:", "C:"}));
    ASSERT_EQ(machine.services[0].signs.size(), 2u);
    ExpectSame(machine.services[0].signs[0],
               {"Four", {7, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_REFLECT, {}, {}, {}}});
    ExpectSame(machine.services[0].signs[1],
               {"Five", {16, 48, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_LED, {}, {}, {}}});
    EXPECT_EQ(machine.services[1].name, "Ten");
}

TEST_F(MachineFile, FurtherSettingsHold32Entries) {
    std::string lines =
        "Sign1\\Name=s\nSign1\\Rows=8\nSign1\\Columns=16\nSign1\\Color=0\n"
        "Sign1\\Pixel=3\n";
    for (int i = 1; i <= 40; ++i)
        lines += "Sign1\\Text" + std::to_string(i) + "=t\nSign1\\Number" + std::to_string(i) + "=" +
                 std::to_string(i) + "\n";
    ASSERT_TRUE(TakesSign(lines));
    const k4cmn::SignSettings& sign = machine.services[0].signs[0].settings;
    EXPECT_EQ(sign.texts.size(), 32u);
    ASSERT_EQ(sign.numbers.size(), 32u);
    EXPECT_EQ(sign.numbers.back(), 32u);
}

struct BadSignCase {
    const char* what;
    const char* lines;
    const char* problem;
};

class BadSign : public MachineFile, public testing::WithParamInterface<BadSignCase> {};

TEST_P(BadSign, IsLeftOutAndToldAbout) {
    EXPECT_FALSE(TakesSign(GetParam().lines));
    EXPECT_EQ(problem, GetParam().problem);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BadSign,
    testing::Values(
        BadSignCase{"NoName", "Sign1\\Rows=8\n",
                    "Sign 1 (\"\") of the service \"Local\" is left out. It has no name."},
        BadSignCase{"NoColor", "Sign1\\Name=s\nSign1\\Rows=8\nSign1\\Columns=16\nSign1\\Pixel=3\n",
                    "Sign 1 (\"s\") of the service \"Local\" is left out. Its color technology is "
                    "unknown."},
        BadSignCase{
            "UnknownColor",
            "Sign1\\Name=s\nSign1\\Rows=8\nSign1\\Columns=16\nSign1\\Color=pink\nSign1\\Pixel=3\n",
            "Sign 1 (\"s\") of the service \"Local\" is left out. Its color technology is "
            "unknown."},
        BadSignCase{
            "UnknownPixel",
            "Sign1\\Name=s\nSign1\\Rows=8\nSign1\\Columns=16\nSign1\\Color=0\nSign1\\Pixel=-1\n",
            "Sign 1 (\"s\") of the service \"Local\" is left out. Its pixel technology is "
            "unknown."},
        BadSignCase{
            "BadSize",
            "Sign1\\Name=s\nSign1\\Rows=9\nSign1\\Columns=20\nSign1\\Color=0\nSign1\\Pixel=3\n",
            "Sign 1 (\"s\") of the service \"Local\" is left out. Number of rows must be 7 or a "
            "multiple of 8. Number of columns must be a multiple of 8."},
        BadSignCase{"HugeSize",
                    "Sign1\\Name=s\nSign1\\Rows=2048\nSign1\\Columns=16384\nSign1\\Color="
                    "0\nSign1\\Pixel=3\n",
                    "Sign 1 (\"s\") of the service \"Local\" is left out. Rows x Cols cannot be > "
                    "8388608"},
        BadSignCase{
            "NumberPast32Bits",
            "Sign1\\Name=s\nSign1\\Rows=4294967304\nSign1\\Columns=16\nSign1\\Color=0\n"
            "Sign1\\Pixel=3\n",
            "Sign 1 (\"s\") of the service \"Local\" is left out. Invalid number of rows."}),
    [](const auto& testCase) { return std::string(testCase.param.what); });

TEST_F(MachineFile, SecondSignOfAServiceWithTheSameNameIsLeftOut) {
    std::string lines;
    for (const char* number : {"1", "2"})
        lines += std::string("Sign") + number + "\\Name=" + (*number == '1' ? "S" : "s") +
                 "\nSign" + number + "\\Rows=8\nSign" + number + "\\Columns=16\nSign" + number +
                 "\\Color=0\nSign" + number + "\\Pixel=3\n";
    EXPECT_TRUE(TakesSign(lines));
    EXPECT_EQ(machine.services[0].signs[0].name, "S");
    EXPECT_EQ(problem,
              "Sign 2 (\"s\") of the service \"Local\" is left out. Another sign has its name.");
}

TEST_F(MachineFile, ServiceWithoutANameIsLeftOut) {
    EXPECT_EQ(Read("[Service1]\nServer1=A:\n[Service2]\nName=North\n"), 1);
    ASSERT_EQ(machine.services.size(), 1u);
    EXPECT_EQ(machine.services[0].name, "North");
    EXPECT_EQ(problem, "Service 1 is left out. It has no name.");
}

TEST_F(MachineFile, SecondServiceOfTheSameNameIsLeftOut) {
    EXPECT_EQ(Read("[Service1]\nName=North\nServer1=A:\n[Service3]\nName=nORTH\nServer1=B:\n"
                   "[Service4]\nName=East\n"),
              1);
    ASSERT_EQ(machine.services.size(), 2u);
    EXPECT_EQ(machine.services[0].name, "North");
    EXPECT_EQ(machine.services[0].servers, Texts{"A:"});
    EXPECT_EQ(machine.services[1].name, "East");
    EXPECT_EQ(problem, "Service 3 (\"nORTH\") is left out. Another service has its name.");
}

TEST_F(MachineFile, SameNameBehindAnotherPhoneBookEntryIsAnotherService) {
    EXPECT_EQ(Read("[Service1]\nName=Local\n"
                   "[Service2]\nName=Local\nPhoneBookEntry=Harbour\n"
                   "[Service3]\nName=Local\nPhoneBookEntry=HARBOUR\n"),
              1);
    ASSERT_EQ(machine.services.size(), 2u);
    EXPECT_EQ(machine.services[1].phoneBookEntry, "Harbour");
    EXPECT_EQ(problem, "Service 3 (\"Local\") is left out. Another service has its name.");
}

TEST_F(MachineFile, WithoutAFileThereIsNothingToTell) {
    machine.services.push_back({"kept", "", {}, {}});
    EXPECT_EQ(ReadMachineSettings(home, machine, &problem), 0);
    EXPECT_EQ(problem, "");
    EXPECT_EQ(machine.services.size(), 1u);
    EXPECT_FALSE(fs::exists(folder / "settings"));
}

TEST_F(MachineFile, DamagedFileIsSetAsideAndToldAboutAtEachStart) {
    const std::string path = home.MachineSettings().string();
    machine.services.push_back({"kept", "", {}, {}});
    EXPECT_EQ(Read("[Service1]\nName=Local\nnonsense"), 0);
    EXPECT_EQ(problem, path + " was damaged; it is kept as " + path + ".damaged-1.");
    EXPECT_EQ(machine.services.size(), 1u);
    EXPECT_EQ(ReadMachineSettings(home, machine, &problem), 0);
    EXPECT_EQ(problem,
              "There are no machine settings; damaged ones are kept as " + path + ".damaged-1.");
    EXPECT_EQ(folder.Read("settings/machine.ini.damaged-1"), "[Service1]\nName=Local\nnonsense");
    EXPECT_EQ(ReadMachineSettings(home, machine, nullptr), 0);
}

TEST_F(MachineFile, FileThatCantBeRead) {
    fs::create_directories(home.MachineSettings());
    EXPECT_EQ(ReadMachineSettings(home, machine, &problem), 0);
    EXPECT_EQ(problem, home.MachineSettings().string() + " can't be read.");
    EXPECT_EQ(WriteMachineSettings(home, machine), 0);
}

TEST_F(MachineFile, TextsThatAreNotUtf8AreNotWritten) {
    const SignSetup good{"s", {8, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, {}, {}, {}}};
    SignSetup badName = good;
    badName.name = "\xff";
    SignSetup badText = good;
    badText.settings.texts = {"\xff"};
    for (const k4suite::ServiceSetup& service :
         std::vector<k4suite::ServiceSetup>{{"\xff", "", {}, {}},
                                            {"x", "\xff", {}, {}},
                                            {"x", "", {"\xff"}, {}},
                                            {"x", "", {}, {badName}},
                                            {"x", "", {}, {badText}}}) {
        MachineSettings bad;
        bad.services = {service};
        EXPECT_EQ(WriteMachineSettings(home, bad), 0);
    }
    EXPECT_FALSE(fs::exists(home.MachineSettings()));
}

TEST_F(MachineFile, FindsAServiceInAnyCase) {
    machine.services = {{"Local", "", {"A:"}, {}}, {"North Tower", "", {}, {}}};
    ASSERT_NE(machine.Find("NORTH tower"), nullptr);
    EXPECT_EQ(machine.Find("NORTH tower")->name, "North Tower");
    EXPECT_EQ(machine.Find("local")->servers, Texts{"A:"});
    EXPECT_EQ(machine.Find("North"), nullptr);
    EXPECT_EQ(machine.Find(""), nullptr);
}

TEST_F(MachineFile, ContentsOfAnyKindDoNoHarm) {
    std::uint32_t random = 12345;
    for (int round = 0; round < 200; ++round) {
        std::string content;
        const std::string_view pieces[] = {
            "[Service1]\n", "Name=",    "Sign1\\", "Rows=", "\xff", "=", "[",     "]", "\n",
            "99999999999",  "Server1=", "\"",      "\\x",   "%",    "@", "Local", ",", ";",
            "Color=",       {"\0", 1}};
        for (int i = 0; i < 30; ++i) {
            random = random * 1664525 + 1013904223;
            content += pieces[(random >> 16) % std::size(pieces)];
        }
        const int result = Read(content);
        EXPECT_TRUE(result == 1 || !problem.empty()) << content;
    }
}

}  // namespace
