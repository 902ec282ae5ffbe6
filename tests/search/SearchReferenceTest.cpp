#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <tuple>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/search/SearchEngine.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/search/GeneratedCriteria.h"
#include "tests/search/GeneratedStore.h"
#include "tests/search/ListedRows.h"
#include "tests/search/RecordingPrompt.h"
#include "tests/search/SearchReference.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/StoreFixture.h"

// The search beside a plain one, over stores and criteria that generators make up.

namespace {

using k4cmn::FoundFileRow;
using k4cmn::Message;
using k4cmn::SearchCriteria;
using k4cmn::SearchEngine;
using k4cmn::SearchMode;
using k4cmn::SearchPlace;
using k4test::SearchReference;
using Rows = std::vector<FoundFileRow>;

constexpr std::uint32_t kNewSearches = 10;  // in each store
constexpr std::uint32_t kNarrowings = 3;    // at most, behind each of them

/// A time zone, and a moment in it that has something special.
struct Setting {
    const char* zone;
    std::int64_t now;
};
constexpr Setting kSettings[] = {
    {"UTC0", 1'785'506'709},                                 // 31 July 2026, 14:05:09
    {"UTC0", 1'709'164'800},                                 // 29 February 2024, 00:00:00
    {"CET-1CEST,M3.5.0,M10.5.0/3", 1'774'746'000},           // the moment when summer time begins
    {"CET-1CEST,M3.5.0,M10.5.0/3", 1'793'487'599},           // 31 October 2026, 23:59:59
    {"EST5EDT,M3.2.0,M11.1.0", 1'767'243'600},               // 1 January 2026, 00:00:00
    {"EST5EDT,M3.2.0,M11.1.0", 1'793'512'799},               // a second before summer time ends
    {"BRT3BRST,M10.3.0/0,M2.3.0/0", 1'792'292'400},          // a day that begins at 01:00
    {"BRT3BRST,M10.3.0/0,M2.3.0/0", 1'771'122'600},          // in an hour that comes twice
    {"NST3:30NDT,M3.2.0/0:01,M11.1.0/0:01", 1'793'500'200},  // the last minute of a day comes twice
    {"LHST-10:30LHDT-11,M10.1.0,M4.1.0", 1'775'314'799},     // summer time is half an hour
    {"<+14>-14", 1'767'175'199},                             // 31 December 2025, 23:59:59
    {"<-12>12", 4'102'444'800},
};

std::string RowText(const FoundFileRow& row) {
    std::ostringstream text;
    text << "\"" << row.name << "\"  " << row.path << "  " << row.size << " bytes, modified "
         << k4cmn::TimeText("%Y-%m-%d %H:%M:%S", k4cmn::LocalTime(row.modified)) << " ("
         << row.modified << "), type " << row.type << "\n";
    return text.str();
}

bool ComesBefore(const FoundFileRow& one, const FoundFileRow& other) {
    return std::tie(one.path, one.name, one.size, one.modified, one.type) <
           std::tie(other.path, other.name, other.size, other.modified, other.type);
}

/// What one list has and the other lacks, a line each; empty if they are the same.
std::string Difference(Rows found, Rows expected) {
    std::sort(found.begin(), found.end(), ComesBefore);
    std::sort(expected.begin(), expected.end(), ComesBefore);
    Rows surplus;
    std::set_difference(found.begin(), found.end(), expected.begin(), expected.end(),
                        std::back_inserter(surplus), ComesBefore);
    Rows missing;
    std::set_difference(expected.begin(), expected.end(), found.begin(), found.end(),
                        std::back_inserter(missing), ComesBefore);
    std::string text;
    for (const FoundFileRow& row : surplus)
        text += "should not be there: " + RowText(row);
    for (const FoundFileRow& row : missing)
        text += "is missing: " + RowText(row);
    return text;
}

class SearchBesideReference : public k4test::StoreFixture,
                              public testing::WithParamInterface<std::uint32_t> {
 protected:
    /// Every fifth store belongs to a system whose servers can't be read.
    void MakeStore() {
        generated = std::make_unique<k4test::GeneratedStore>(home.Path(), seed, setting.now);
        const bool canReadServers = seed % 5 != 4;
        if (canReadServers)
            ConfigureLocal(generated->configured);
        std::vector<std::string> servers;
        ASSERT_EQ(CK4Registry::GetRegistryServers(servers), canReadServers ? 1 : 0);
        if (canReadServers)
            store.servers = servers;
        store.native = [this](const std::string& path) { return files.NativePath(path); };
        store.keywords = generated->keywords;
        store.now = setting.now;
        // The second is over before the next one begins.
        clock.Set(k4cmn::Clock::TimePoint(std::chrono::milliseconds(setting.now * 1000 + 999)));
    }

    /// The criteria of every file of the first server.
    SearchCriteria Every() const {
        SearchCriteria criteria;
        criteria.fileName = "*";
        criteria.place.server = generated->servers.front();
        return criteria;
    }

    void SearchNew(const SearchCriteria& criteria, bool isOneCall) {
        SearchReference reference(store, criteria);
        SearchEngine engine(criteria, SearchMode::New, list, prompt);
        if (isOneCall) {
            list.rows.clear();  // which is not the engine's task here
            const SearchPlace& place = criteria.place;
            engine.SearchForFiles(place.server, place.signType, place.library);
            reference.SearchNew(place.server, place.signType, place.library);
        } else {
            engine.Find();
            reference.FindNew();
        }
        // The order of the file system decides that of the messages.
        std::vector<std::string> messages = reference.Messages();
        std::sort(messages.begin(), messages.end());
        std::sort(prompt.messages.begin(), prompt.messages.end(),
                  [](const Message& one, const Message& other) { return one.text < other.text; });
        Compare(reference.Rows(), messages, criteria, "New");
    }

    void Narrow(const SearchCriteria& criteria, bool isOneCall) {
        SearchReference reference(store, criteria);
        const Rows before = list.rows;
        SearchEngine engine(criteria, SearchMode::Previous, list, prompt);
        if (isOneCall) {
            engine.SearchForFiles("Q:", "the arguments", "don't count");
            reference.SearchPrevious(before);
        } else {
            engine.Find();
            reference.FindPrevious(before);
        }
        Compare(reference.Rows(), reference.Messages(), criteria, "Previous");
    }

    void Compare(const Rows& rows, const std::vector<std::string>& messages,
                 const SearchCriteria& criteria, const char* mode) {
        ++searches;
        found += rows.size();
        told += messages.size();
        const std::string where = std::string(mode) + " search " + std::to_string(searches) + " " +
                                  k4test::CriteriaText(criteria);
        EXPECT_EQ(Difference(list.rows, rows), "") << where;
        std::vector<Message> expected;
        for (const std::string& text : messages)
            expected.push_back({text, "", k4cmn::MessageButtons::Ok, k4cmn::MessageIcon::Stop});
        EXPECT_EQ(prompt.messages.size(), expected.size()) << where;
        for (std::size_t i = 0; i < std::min(expected.size(), prompt.messages.size()); ++i) {
            EXPECT_EQ(prompt.messages[i].text, expected[i].text) << where;
            EXPECT_TRUE(prompt.messages[i] == expected[i]) << where << "\ntitle, buttons or icon";
        }
        prompt.messages.clear();
    }

    const std::uint32_t seed = GetParam();
    const Setting setting = kSettings[seed % std::size(kSettings)];
    const k4test::ScopedTimeZone zone{setting.zone};
    k4test::DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};

    std::unique_ptr<k4test::GeneratedStore> generated;
    k4test::ReferenceStore store;
    k4test::ListedRows list;
    k4test::RecordingPrompt prompt;
    std::size_t searches = 0;
    std::size_t found = 0;
    std::size_t told = 0;
};

TEST_P(SearchBesideReference, FindsTheSameAndSaysTheSame) {
    ASSERT_NO_FATAL_FAILURE(MakeStore());
    const k4test::OrdinaryUser user(home.Path());
    k4test::GeneratedCriteria criteria(*generated, seed + 1000);
    std::mt19937 random(seed);
    for (std::uint32_t i = 0; i < kNewSearches && !HasFailure(); ++i) {
        SearchNew(criteria.Next(), random() % 4 == 0);
        for (std::uint32_t more = random() % (kNarrowings + 1); more > 0 && !HasFailure(); --more) {
            if (list.rows.empty())
                SearchNew(Every(), false);
            Narrow(criteria.NextToNarrow(), random() % 4 == 0);
        }
    }
    EXPECT_GT(found, 0U) << "nothing was compared";
    RecordProperty("searches", static_cast<int>(searches));
    RecordProperty("found", static_cast<int>(found));
    RecordProperty("told", static_cast<int>(told));
}

INSTANTIATE_TEST_SUITE_P(Stores, SearchBesideReference, testing::Range(0U, 24U));

}  // namespace
