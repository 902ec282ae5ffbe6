#include "suite/sample/SampleData.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <set>

#include "k4cmndlg/filestore/SignLimits.h"
#include "suite/signservice/SignStateFile.h"
#include "suite/store/FolderFiles.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace k4suite;

/// Every file below a folder with its content, every folder with "/".
std::map<std::string, std::string> Contents(const fs::path& root) {
    std::map<std::string, std::string> contents;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string name = fs::relative(entry.path(), root).string();
        contents[name] = "/";
        if (entry.is_regular_file())
            contents[name] = std::to_string(entry.file_size()) + " " +
                             std::to_string(entry.last_write_time().time_since_epoch().count());
    }
    return contents;
}

class Sample : public testing::Test {
 protected:
    k4test::TempFolder folder;
    DataHome home{folder / "home"};
    std::string problem = "old";

    /// Seeds with the content that lies in the folder "content", if there is any.
    int Seed(std::string* words = nullptr) {
        return SeedSampleData(home, words, folder / "content");
    }
};

TEST_F(Sample, NewHomeGetsTheMachines) {
    ASSERT_EQ(Seed(&problem), 1);
    EXPECT_EQ(problem, "");
    MachineSettings machine;
    ASSERT_EQ(ReadMachineSettings(home, machine, &problem), 1);
    EXPECT_EQ(problem, "");
    std::vector<std::string> names;
    for (const ServiceSetup& service : machine.services)
        names.push_back(service.name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Local", "North Tower", "Harbour Gate", "Observatory"}));
}

TEST_F(Sample, TheObservatoryAloneIsReachedByTelephone) {
    for (const ServiceSetup& service : SampleMachines().services)
        EXPECT_EQ(service.phoneBookEntry, service.name == "Observatory" ? "Hilltop" : "")
            << service.name;
}

TEST_F(Sample, LocalHasTheMainBoardAndTheScoreboard) {
    const MachineSettings machine = SampleMachines();
    const ServiceSetup* local = machine.Find("Local");
    ASSERT_NE(local, nullptr);
    ASSERT_GE(local->signs.size(), 2u);
    EXPECT_EQ(local->servers, (std::vector<std::string>{"A:", "\\\\STORE\\SIGNS"}));
    EXPECT_EQ(local->signs[0].name, "Main Board");
    EXPECT_EQ(local->signs[0].settings.rows, 64u);
    EXPECT_EQ(local->signs[0].settings.columns, 192u);
    EXPECT_EQ(local->signs[0].settings.color, K4_SIGN_COLOR_RGB16M);
    EXPECT_EQ(local->signs[1].name, "Scoreboard");
    EXPECT_EQ(local->signs[1].settings.color, K4_SIGN_COLOR_QUAD16);
    EXPECT_EQ(local->signs[1].settings.pixel, K4_PIXEL_TECH_INCAND);
}

TEST_F(Sample, SignsAreLegalAndDiffer) {
    for (const ServiceSetup& service : SampleMachines().services) {
        EXPECT_GE(service.signs.size(), service.phoneBookEntry.empty() ? 3u : 1u);
        std::set<std::string> names;
        std::set<std::pair<std::uint32_t, std::uint32_t>> sizes;
        for (const SignSetup& sign : service.signs) {
            EXPECT_EQ(k4cmn::SignTypeMessages(sign.settings.rows, sign.settings.columns,
                                              sign.settings.color, sign.settings.pixel),
                      std::vector<std::string>{})
                << sign.name;
            EXPECT_LE(sign.name.size(), 20u);
            names.insert(sign.name);
            sizes.insert({sign.settings.rows, sign.settings.columns});
        }
        EXPECT_EQ(names.size(), service.signs.size());
        EXPECT_EQ(sizes.size(), service.signs.size());
    }
}

TEST_F(Sample, FirstSignOfEachMachineHasRoomForTheOthers) {
    for (const ServiceSetup& service : SampleMachines().services) {
        const k4cmn::SignSettings& first = service.signs.front().settings;
        for (const SignSetup& sign : service.signs) {
            EXPECT_LE(sign.settings.rows, first.rows) << sign.name;
            EXPECT_LE(sign.settings.columns, first.columns) << sign.name;
        }
    }
}

TEST_F(Sample, EachSignHasItsFolderAndItsPaletteTwinOnEachServer) {
    ASSERT_EQ(Seed(), 1);
    FolderFiles store(home);
    for (const ServiceSetup& service : SampleMachines().services) {
        for (const std::string& server : service.servers) {
            for (const SignSetup& sign : service.signs) {
                for (const int palette : {0, 1}) {
                    const k4cmn::SignSettings& of = sign.settings;
                    const std::string type =
                        store.BuildSign(of.rows, of.columns, of.color, of.pixel, palette);
                    std::vector<std::string> libraries;
                    ASSERT_EQ(store.FindFiles(libraries, server + "\\" + type + ".Sign\\*.Lib", 1),
                              1)
                        << server << " " << type;
                    const std::set<std::string> found(libraries.begin(), libraries.end());
                    EXPECT_EQ(found.count("Default.Lib"), 1u);
                    EXPECT_GE(found.size(), 2u);
                }
            }
        }
    }
}

TEST_F(Sample, FoldersTakeFurtherLibraries) {
    ASSERT_EQ(Seed(), 1);
    FolderFiles store(home);
    const std::string library = store.NativePath("A:\\64x192.RGB16M.LED.Sign\\Mine.Lib");
    EXPECT_TRUE(fs::create_directory(library));
    EXPECT_NE(fs::status(fs::path(library).parent_path()).permissions() & fs::perms::owner_write,
              fs::perms::none);
}

TEST_F(Sample, SecondCallTouchesNothing) {
    ASSERT_EQ(Seed(), 1);
    fs::remove_all(home.Drives());
    const auto before = Contents(home.Path());
    EXPECT_EQ(Seed(&problem), 1);
    EXPECT_EQ(problem, "");
    EXPECT_EQ(Contents(home.Path()), before);
}

TEST_F(Sample, HomeWithOwnMachinesIsNotTouched) {
    folder.Write("home/settings/machine.ini", "[Service1]\nName=Mine\n");
    const auto before = Contents(home.Path());
    EXPECT_EQ(Seed(&problem), 1);
    EXPECT_EQ(Contents(home.Path()), before);
}

TEST_F(Sample, HomeWithDamagedMachinesIsNotTouchedEvenOnceTheyAreSetAside) {
    folder.Write("home/settings/machine.ini", "nonsense");
    EXPECT_EQ(Seed(&problem), 1);
    EXPECT_EQ(folder.Read("home/settings/machine.ini"), "nonsense");
    MachineSettings machine;
    EXPECT_EQ(ReadMachineSettings(home, machine, nullptr), 0);
    EXPECT_EQ(Seed(&problem), 1);
    EXPECT_FALSE(fs::exists(home.MachineSettings()));
    EXPECT_FALSE(fs::exists(home.Drives()));
}

TEST_F(Sample, HalfFilledHomeIsCompletedAndItsFilesStay) {
    const fs::path kept =
        folder.Write("home/drives/A/64x192.RGB16M.LED.Sign/Default.Lib/Mine.SQ4", "my sequence");
    ASSERT_EQ(Seed(), 1);
    EXPECT_EQ(folder.Read("home/drives/A/64x192.RGB16M.LED.Sign/Default.Lib/Mine.SQ4"),
              "my sequence");
    EXPECT_TRUE(fs::exists(home.Drives() / "A/64x192.RGB16M.LED.Sign/Events.Lib"));
    EXPECT_TRUE(fs::exists(home.MachineSettings()));
}

TEST_F(Sample, FailureIsToldAndLeavesNoMachines) {
    folder.Write("home/drives", "a file in place of the folder");
    EXPECT_EQ(Seed(&problem), 0);
    EXPECT_TRUE(problem.starts_with("The sample data couldn't be made: ")) << problem;
    EXPECT_FALSE(fs::exists(home.MachineSettings()));
    fs::remove(home.Drives());
    EXPECT_EQ(Seed(&problem), 1);
    EXPECT_TRUE(fs::exists(home.MachineSettings()));
}

TEST_F(Sample, HomeThatCantBeMade) {
    folder.Write("home", "a file");
    EXPECT_EQ(Seed(&problem), 0);
    EXPECT_NE(problem, "");
    EXPECT_EQ(Seed(), 0);
    EXPECT_EQ(folder.Read("home"), "a file");
}

TEST_F(Sample, ProcessesThatSeedTogetherBothSucceed) {
    const pid_t child = fork();
    if (child == 0)
        _exit(Seed() ? 0 : 1);
    EXPECT_EQ(Seed(&problem), 1) << problem;
    int status = 1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    MachineSettings machine;
    EXPECT_EQ(ReadMachineSettings(home, machine, &problem), 1);
    EXPECT_EQ(machine.services.size(), 4u);
}

// Content -----------------------------------------------------------------------------------------

constexpr const char* kGoal = "64x192.RGB16M.LED.Sign/Events.Lib/Goal.SQ4";

TEST_F(Sample, ContentGoesToEachServerThatHasTheSignType) {
    folder.Write(std::string("content/") + kGoal, "goal");
    folder.Write("content/64x256.RGB64.LED.Sign/Default.Lib/Aurora.SQ4", "aurora");
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(problem, "");
    EXPECT_EQ(folder.Read(std::string("home/drives/A/") + kGoal), "goal");
    EXPECT_EQ(folder.Read(std::string("home/network/STORE/SIGNS/") + kGoal), "goal");
    EXPECT_FALSE(fs::exists(folder / (std::string("home/network/TOWER/SIGNS/") + kGoal)));
    for (const char* share : {"SIGNS", "ARCHIVE"})
        EXPECT_EQ(folder.Read(std::string("home/network/TOWER/") + share +
                              "/64x256.RGB64.LED.Sign/Default.Lib/Aurora.SQ4"),
                  "aurora");
}

TEST_F(Sample, ContentOfSignTypesThatNoSignHasGoesToTheArchiveOrNowhere) {
    folder.Write("content/32x96.Mono64.LED.Sign/Default.Lib/Moon.SQ4", "moon");
    folder.Write("content/8x16.Mono1.LED.Sign/Default.Lib/Unknown.SQ4", "unknown");
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(folder.Read("home/network/TOWER/ARCHIVE/32x96.Mono64.LED.Sign/Default.Lib/Moon.SQ4"),
              "moon");
    for (const auto& [name, content] : Contents(home.Path()))
        EXPECT_EQ(name.find("Unknown"), std::string::npos) << name;
}

TEST_F(Sample, StoresHaveSignTypesOfEightColorTechnologiesAtLeast) {
    ASSERT_EQ(Seed(), 1);
    std::set<std::string> colors;
    for (const auto& [name, content] : Contents(home.Path())) {
        const std::string type = fs::path(name).filename().string();
        if (type.ends_with(".Sign"))
            colors.insert(type.substr(type.find('.') + 1,
                                      type.find('.', type.find('.') + 1) - type.find('.') - 1));
    }
    EXPECT_GE(colors.size(), 8u);
}

/// What the home keeps of a sign's default sequence; empty if it keeps nothing of the sign.
std::string KeptDefault(const DataHome& home, const char* machine, const char* sign) {
    std::string problem;
    const auto kept = SignStateFile(home.SignState(), machine, sign).Read(problem);
    EXPECT_EQ(problem, "");
    return kept ? kept->defaultOrder.sequence : std::string();
}

TEST_F(Sample, SignsBeginWithTheirFirstSequenceWhereItIsThere) {
    folder.Write("content/16x96.Mono16.LED.Sign/Default.Lib/News.SQ4", "news");
    folder.Write("content/32x96.Mono64.LED.Sign/Default.Lib/Moon.SQ4", "moon");
    folder.Write("content/64x192.RGB16M.LED.Sign/Default.Lib/Other.SQ4", "other");
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(KeptDefault(home, "Local", "Ticker"),
              "A:\\16x96.Mono16.LED.Sign\\Default.Lib\\News.SQ4");
    EXPECT_EQ(KeptDefault(home, "Observatory", "Path"),
              "\\\\OBSERVATORY\\SIGNS\\32x96.Mono64.LED.Sign\\Default.Lib\\Moon.SQ4");
    EXPECT_EQ(KeptDefault(home, "Local", "Main Board"), "");
}

TEST_F(Sample, WhatASignKeepsAlreadyStays) {
    folder.Write("content/16x96.Mono16.LED.Sign/Default.Lib/News.SQ4", "news");
    SignKept kept;
    kept.defaultOrder.sequence = "A:\\Mine.SQ4";
    ASSERT_TRUE(SignStateFile(home.SignState(), "Local", "Ticker").Write(kept, problem)) << problem;
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(KeptDefault(home, "Local", "Ticker"), "A:\\Mine.SQ4");
}

TEST_F(Sample, ContentNeverReplacesAFile) {
    folder.Write(std::string("content/") + kGoal, "sample");
    folder.Write(std::string("home/drives/A/") + kGoal, "mine");
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(folder.Read(std::string("home/drives/A/") + kGoal), "mine");
    EXPECT_EQ(folder.Read(std::string("home/network/STORE/SIGNS/") + kGoal), "sample");
}

TEST_F(Sample, WhatACrashLeftUnfinishedIsFinished) {
    folder.Write(std::string("content/") + kGoal, "whole");
    folder.Write("home/drives/A/64x192.RGB16M.LED.Sign/Events.Lib/.k4copy-Goal.SQ4", "wh");
    ASSERT_EQ(Seed(&problem), 1) << problem;
    EXPECT_EQ(folder.Read(std::string("home/drives/A/") + kGoal), "whole");
    EXPECT_FALSE(
        fs::exists(folder / "home/drives/A/64x192.RGB16M.LED.Sign/Events.Lib/.k4copy-Goal.SQ4"));
}

TEST_F(Sample, ContentThatCannotBeReadIsToldAndLeavesNoMachines) {
    const fs::path goal = folder.Write(std::string("content/") + kGoal, "goal");
    fs::remove(goal);
    fs::create_symlink("nowhere", goal);
    EXPECT_EQ(Seed(&problem), 0);
    EXPECT_TRUE(problem.starts_with("The sample data couldn't be made: ")) << problem;
    EXPECT_FALSE(fs::exists(home.MachineSettings()));
    fs::remove(goal);
    EXPECT_EQ(Seed(&problem), 1) << problem;
}

TEST_F(Sample, WithoutAContentFolderTheLibrariesAreEmpty) {
    ASSERT_EQ(SeedSampleData(home, &problem, {}), 1) << problem;
    for (const auto& [name, content] : Contents(home.Path()))
        EXPECT_FALSE(name.ends_with(".SQ4")) << name;
    EXPECT_TRUE(fs::exists(home.Drives() / "A/64x192.RGB16M.LED.Sign/Default.Lib"));
}

TEST(SampleContent, LiesBesideTheProgram) {
    EXPECT_EQ(SampleContentFolder(),
              fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "share" / "k4400" /
                  "sample");
}

}  // namespace
