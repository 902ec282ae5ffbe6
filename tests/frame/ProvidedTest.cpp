#include "k4cmndlg/frame/Provided.h"

#include <gtest/gtest.h>

#include "k4cmndlg/frame/contracts/Profile.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MemoryProfile.h"

using k4cmn::Clock;
using k4cmn::Profile;
using k4cmn::Provided;
using k4cmn::ScopedProvider;
using k4test::MemoryProfile;

TEST(Provided, NothingInstalledFailsTheWayAnAbsentServiceFails) {
    Profile& absent = Provided<Profile>::Current();
    EXPECT_EQ(absent.WriteString("section", "name", "text"), 0);
    EXPECT_EQ(absent.GetString("section", "name", "fallback"), "fallback");
}

TEST(Provided, ScopesNestAndGiveTheFormerBack) {
    MemoryProfile outer;
    MemoryProfile inner;
    Profile& absent = Provided<Profile>::Current();
    {
        const ScopedProvider<Profile> first(outer);
        EXPECT_EQ(&Provided<Profile>::Current(), &outer);
        {
            const ScopedProvider<Profile> second(inner);
            EXPECT_EQ(&Provided<Profile>::Current(), &inner);
        }
        EXPECT_EQ(&Provided<Profile>::Current(), &outer);
    }
    EXPECT_EQ(&Provided<Profile>::Current(), &absent);
}

TEST(Provided, InstallGivesWhatWasThere) {
    MemoryProfile profile;
    EXPECT_EQ(Provided<Profile>::Install(&profile), nullptr);
    EXPECT_EQ(Provided<Profile>::Install(nullptr), &profile);
}

TEST(Clock, WithoutAnInstalledOneTimePassesByItself) {
    Clock& clock = Provided<Clock>::Current();
    const Clock::TimePoint start = clock.Now();
    EXPECT_GT(start.time_since_epoch().count(), 0);
    while (clock.Now() == start) {
    }
    EXPECT_NE(clock.Now(), start);
}

TEST(Clock, DrivenOneStandsStillUntilItIsMoved) {
    k4test::DrivenClock clock;
    const ScopedProvider<Clock> installed(clock);
    const Clock::TimePoint start = Provided<Clock>::Current().Now();
    EXPECT_EQ(Provided<Clock>::Current().Now(), start);
    clock.Advance(std::chrono::seconds(2));
    EXPECT_EQ(Provided<Clock>::Current().Now() - start, std::chrono::seconds(2));
}
