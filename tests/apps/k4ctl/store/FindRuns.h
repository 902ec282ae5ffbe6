#pragma once

#include "tests/apps/k4ctl/store/StoreRuns.h"
#include "tests/support/DrivenClock.h"

namespace k4test {

inline constexpr std::int64_t kNow = 1'785'506'709;  ///< 31 July 2026, 14:05:09 UTC, a Friday
inline constexpr std::int64_t kDay = 86400;

/// Runs of `find` over the servers A:, B: and \\S\T, at kNow.
class FindRuns : public StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        clock.Set(k4cmn::Clock::TimePoint(std::chrono::seconds(kNow)));
    }

    CommandRun Find(Words words) {
        words.insert(words.begin(), "find");
        return Line(std::move(words));
    }
    /// The paths that are found, in their order; nothing but that is said.
    Words Found(Words words) {
        words.emplace_back("--json");
        const CommandRun run = Find(words);
        const Words paths = Members(run.Json(), "files", "path");
        EXPECT_EQ(run.code, paths.empty() ? k4ctl::ExitCode::NotFound : k4ctl::ExitCode::Done)
            << testing::PrintToString(words);
        EXPECT_EQ(run.err, "") << testing::PrintToString(words);
        return paths;
    }
    /// The names of the files that are found, with their extensions.
    Words Names(const Words& words) {
        Words names = Found(words);
        for (std::string& name : names)
            name.erase(0, name.rfind('\\') + 1);
        return names;
    }
    /// The search must fail with these words alone.
    void Fails(Words words, const std::string& problem) {
        const CommandRun run = Find(words);
        EXPECT_EQ(run.code, k4ctl::ExitCode::Unavailable) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "k4ctl: " + problem + "\n");
        EXPECT_EQ(run.out, "");
        words.emplace_back("--json");
        const QJsonObject json = Find(words).Json();
        EXPECT_EQ(json.value(QLatin1String("error")).toString().toStdString(), problem);
        EXPECT_FALSE(json.contains(QLatin1String("files")));
    }
    /// The line must not be understood.
    void Wrong(const Words& words, const std::string& problem) {
        const CommandRun run = Find(words);
        EXPECT_EQ(run.code, k4ctl::ExitCode::Usage) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "k4ctl: " + problem + "\nk4ctl: see k4ctl find --help\n");
        EXPECT_EQ(run.out, "");
    }

    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
};

}  // namespace k4test
