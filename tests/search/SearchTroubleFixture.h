#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "k4cmndlg/search/SearchEngine.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/search/ListedRows.h"
#include "tests/search/RecordingPrompt.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// Searches over a store in which something goes wrong.
class SearchTroubleFixture : public StoreFixture {
 protected:
    using Texts = std::vector<std::string>;

    static std::string Folder(const std::string& server, const std::string& library) {
        return server + "\\" + kType + ".Sign\\" + library + ".Lib\\";
    }
    void MakeSequence(const std::string& path, const std::string& keywords = {}) {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.keywords = keywords;
        std::filesystem::create_directories(Native(path).parent_path());
        k4suite::SequenceWriter writer(Native(path).string(), facts);
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    void MakeLink(const std::filesystem::path& target, const std::string& path) {
        std::filesystem::create_symlink(target, Native(path));
    }

    /// Every file of a place.
    static k4cmn::SearchCriteria Everything(const std::string& server = k4cmn::kFileServers) {
        k4cmn::SearchCriteria criteria;
        criteria.fileName = "*";
        criteria.place.server = server;
        return criteria;
    }
    void Find(const k4cmn::SearchCriteria& criteria,
              k4cmn::SearchMode mode = k4cmn::SearchMode::New) {
        k4cmn::SearchEngine(criteria, mode, list, prompt).Find();
    }
    /// The paths of all rows, in order.
    Texts Found() const {
        Texts paths = list.Paths();
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    /// The texts of the messages until now, which are then forgotten.
    Texts Told() {
        Texts texts;
        for (const k4cmn::Message& message : prompt.messages) {
            EXPECT_EQ(message.icon, k4cmn::MessageIcon::Stop) << message.text;
            EXPECT_EQ(message.buttons, k4cmn::MessageButtons::Ok) << message.text;
            EXPECT_EQ(message.title, "") << message.text;
            texts.push_back(message.text);
        }
        prompt.messages.clear();
        std::sort(texts.begin(), texts.end());
        return texts;
    }
    static std::string CannotOpen(const std::string& path) {
        return "Error opening Sequence: \n" + path;
    }

    ScopedTimeZone zone{"UTC0"};
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};
    ListedRows list;
    RecordingPrompt prompt;
};

}  // namespace k4test
