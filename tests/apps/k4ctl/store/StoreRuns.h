#pragma once

#include <gmock/gmock.h>

#include <QJsonArray>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "apps/k4ctl/store/StoreCommands.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

using Words = std::vector<std::string>;

/// What stands before the files of the library "L" of kType on a server.
inline std::string LibraryOn(const std::string& server, const std::string& library = "L") {
    return server + "\\" + kType + ".Sign\\" + library + ".Lib\\";
}

/// Runs of the commands on the store, on the servers A:, B: and \\S\T of a data home.
class StoreRuns : public StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"A:", "B:", "\\\\S\\T"},
                       {Sign("Ticker", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED),
                        Sign("Gate", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)});
        for (const char* server : {"A:", "B:", "\\\\S\\T"})
            MakeFolder(server);
    }

    /// Runs `store` with these words.
    /// @param answers what a person types; null: nobody sits there.
    CommandRun Call(Words words, const char* answers = nullptr) {
        words.insert(words.begin(), "store");
        return Line(std::move(words), answers);
    }
    /// Runs the program with these words.
    CommandRun Line(Words words, const char* answers = nullptr) {
        std::istringstream typed(answers ? answers : "");
        shown.str("");
        return CommandRun(std::move(words),
                          k4ctl::StoreCommands(k4suite::DataHome(home.Path()),
                                               {typed, shown, answers != nullptr, false}));
    }
    /// As above; it must succeed without a complaint.
    CommandRun Good(const Words& words, const char* answers = nullptr) {
        CommandRun run = Call(words, answers);
        EXPECT_EQ(run.code, k4ctl::ExitCode::Done) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "") << testing::PrintToString(words);
        return run;
    }
    /// As above; it must be refused with these words alone.
    void Refused(const Words& words, const std::string& problem,
                 k4ctl::ExitCode code = k4ctl::ExitCode::Refused) {
        const CommandRun run = Call(words);
        EXPECT_EQ(run.code, code) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "k4ctl: " + problem + "\n");
    }
    /// As above, and nothing in the home changes.
    void RefusedWithoutChange(const Words& words, const std::string& problem,
                              k4ctl::ExitCode code = k4ctl::ExitCode::Refused) {
        const Words before = Entries();
        Refused(words, problem, code);
        EXPECT_EQ(Entries(), before);
    }

    /// All files and folders of the drives and of the network.
    Words Entries() const {
        Words entries;
        for (const char* part : {"drives", "network"})
            for (const auto& entry :
                 std::filesystem::recursive_directory_iterator(home.Path() / part))
                entries.push_back(entry.path().string());
        std::sort(entries.begin(), entries.end());
        return entries;
    }
    /// Puts a sequence of one frame into the store.
    void MakeSequence(const std::string& path, std::int64_t time = -1,
                      const std::string& keywords = {}) {
        k4suite::SequenceFacts facts;
        facts.keywords = keywords;
        facts.rows = 16;
        facts.columns = 80;
        MakeFile(path);
        k4suite::SequenceWriter writer(Native(path).string(), facts);
        const std::vector<std::uint8_t> bulbs(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(16, 80, facts.color)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1250, bulbs));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
        if (time >= 0)
            Touch(path, time);
    }
    void Touch(const std::string& path, std::int64_t time) {
        const timespec times[2] = {{time, 0}, {time, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, Native(path).c_str(), times, 0), 0);
    }
    /// How many files lie in the trash.
    std::size_t InTrash() const {
        const std::filesystem::path removed = home.Path() / "xdg/Trash/files";
        std::error_code none;
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(removed, none), {}));
    }

    ScopedEnvironment trash{"XDG_DATA_HOME", (home.Path() / "xdg").string()};
    ScopedTimeZone zone{"UTC0"};
    std::ostringstream shown;  ///< questions and progress of the last run
};

/// A member of each object of an array.
inline Words Members(const QJsonObject& document, const char* array, const char* member) {
    Words members;
    for (const auto each : document.value(QLatin1String(array)).toArray())
        members.push_back(each.toObject().value(QLatin1String(member)).toString().toStdString());
    return members;
}

}  // namespace k4test
